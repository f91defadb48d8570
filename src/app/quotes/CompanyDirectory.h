#pragma once

#include "app/quotes/SourceCalls.h"
#include "core/quotes/company_names.h"

#include <filesystem>
#include <optional>

namespace tallowmere {

class Clock;
class LiveQuotes;
struct SourceTable;

/// Which company a ticker stands for: the names of the market that ships, over them those of the
/// list that was fetched, over both those that came with quotes. Nothing is read before somebody
/// asks for a name.
class CompanyDirectory : public QObject {
    Q_OBJECT
public:
    /// `shipped` is the file of the market that ships, `kept` that of the fetched list. `clock` is
    /// kept by reference.
    CompanyDirectory(std::filesystem::path shipped, std::filesystem::path kept, const Clock& clock,
                     QObject* parent = nullptr);

    /// Takes names from these quotes too, which outlive it, and has the list fetched from the
    /// source of this table when somebody looks for a name and it is due.
    void Serve(LiveQuotes& quotes, const SourceTable& sources);

    /// The proxy of all requests from now on.
    void UseProxy(const ProxySetting& setting) { m_calls.UseProxy(setting); }

    /// The name of a ticker in any spelling, empty when it is not known.
    std::string NameOf(const std::string& ticker);
    /// What to offer for the text of an entry up to the cursor.
    NameOffer Offer(const std::string& entry);

Q_SIGNALS:
    /// Names may be other ones than before.
    void Changed();

private:
    void Load();
    void Fill();
    void AskWhenDue();
    void Receive(const SourceResponse& response);
    void Keep() const;

    std::filesystem::path m_shippedFile;
    std::filesystem::path m_keptFile;
    const Clock& m_clock;
    LiveQuotes* m_quotes = nullptr;
    std::optional<CompanySource> m_source;
    std::string m_agent;
    bool m_isAsking = false;
    bool m_isLoaded = false;
    KeptCompanies m_kept;
    CompanyNames m_names;
    SourceCalls m_calls;
};

} // namespace tallowmere
