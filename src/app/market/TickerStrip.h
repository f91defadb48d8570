#pragma once

#include <QObject>
#include <QTimer>

#include <optional>
#include <string>

namespace tallowmere {

class SettingsStore;
class SiteTable;
class frmMain;

/// The streaming ticker strip above the panes. The page of the built-in portal follows the list of
/// tickers.
class TickerStrip : public QObject {
    Q_OBJECT
public:
    TickerStrip(frmMain& form, SettingsStore& settings, const SiteTable& sites);

    /// Shows the strip when the settings say so.
    void Start();

    bool IsShown() const { return m_isShown; }

    /// Shows the strip and loads its page, or hides it and ends the page: nothing of it runs on.
    void Show(bool shown);

    /// The same, and writes it down.
    void Switch(bool shown);

    /// The address of the strip's page with the tickers of the list as its query: that is how the
    /// built-in portal is asked for it. Any other path is given back as it is.
    std::string WithTickers(const std::string& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::string Tickers() const;
    void FollowList();

    frmMain& m_form;
    SettingsStore& m_settings;
    const SiteTable& m_sites;
    bool m_isShown = false;
    QTimer m_listChanged;
    std::optional<std::string> m_shownTickers; ///< none while the page is not the portal's
};

} // namespace tallowmere
