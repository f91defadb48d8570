#pragma once

#include <memory>

namespace tallowmere {

class CompanyDirectory;
class LiveQuotes;
class QuoteWishes;
class WebAccess;
struct ProxySetting;
struct SessionSetup;
struct Subsystems;

/// Where the pages that the program makes itself come from: in live mode from the quotes of today's
/// sources, in sample mode from the invented market. In every mode it knows what companies are
/// called.
class Portal {
public:
    /// `web` shows the pages, to the ticker strip with the tickers of the list in them. All three
    /// outlive the portal's last page.
    Portal(const SessionSetup& setup, WebAccess& web, const Subsystems& parts);
    ~Portal();

    /// Asks the sources through this proxy from now on.
    void UseProxy(const ProxySetting& proxy);

    /// Leaves the quotes at hand to a later run.
    void Save() const;

private:
    void ServeLive(const SessionSetup& setup, WebAccess& web, const Subsystems& parts);

    // The first two are null but in live mode.
    std::unique_ptr<LiveQuotes> m_live;
    std::unique_ptr<QuoteWishes> m_wishes;
    std::unique_ptr<CompanyDirectory> m_companies;
};

} // namespace tallowmere
