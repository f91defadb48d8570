#pragma once

#include "core/sites/site_table.h"

#include <QObject>

#include <filesystem>

namespace tallowmere {

class Prompts;
class WebAccess;

/// Starts what runs outside the program: the user's browser, calculator and mail program. Each is
/// the one that the site table names, else the desktop's own. What cannot be started is reported.
class SeparateBrowser : public QObject {
    Q_OBJECT
public:
    SeparateBrowser(const SiteTable& sites, const WebAccess& access, Prompts& prompts,
                    const std::filesystem::path& programFolder, QObject* parent = nullptr);

    /// Opens a page in a browser of its own: an http(s) address, in live mode the page that it
    /// leads to today, or the path of a page that the program wrote into its folder. Anything else
    /// is refused, other files above all.
    void Open(const QString& address);
    void StartCalculator();
    /// Begins a mail with what `address`, which starts with "mailto:", says of recipients, subject
    /// and body; what else it says is left out.
    void WriteMail(const QString& address);

private:
    QUrl PageToOpen(const QString& address) const;
    bool StartOrOpen(std::string_view program, const QUrl& url) const;

    const SiteTable& m_sites;
    const WebAccess& m_access;
    Prompts& m_prompts;
    QString m_programFolder;
};

} // namespace tallowmere
