#pragma once

#include <QObject>

class QUrl;
class QWebEnginePage;
class QWebEngineProfile;

namespace tallowmere {

class Prompts;

/// Asks the user for what a page wants beyond showing itself (camera, place, notifications) and
/// refuses everything that is not worth a question. It belongs to its page.
class PagePermissions : public QObject {
    Q_OBJECT
public:
    PagePermissions(QWebEnginePage& page, Prompts& prompts);

    /// Has a profile remember answers as long as the program runs, and no longer: there is no
    /// window to take one back.
    static void RememberForThisRun(QWebEngineProfile& profile);

private:
    /// Whether the user allows what `wish` says; no wish is refused unasked.
    bool Ask(const QUrl& origin, const char* wish);

    Prompts& m_prompts;
};

} // namespace tallowmere
