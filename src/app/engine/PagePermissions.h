#pragma once

#include <QObject>

#include <functional>

class QUrl;
class QWebEnginePage;
class QWebEngineProfile;

namespace tallowmere {

/// Asks the user for what a page wants beyond showing itself (camera, place, notifications) and
/// refuses everything that is not worth a question. It belongs to its page.
class PagePermissions : public QObject {
    Q_OBJECT
public:
    /// Asks whether a page of `origin` may do what `wish` says ("use the camera"), and hands the
    /// answer over once, now or later.
    using Question = std::function<void(const QUrl& origin, const QString& wish,
                                        const std::function<void(bool)>& decide)>;

    PagePermissions(QWebEnginePage& page, Question question);

    /// Has a profile remember answers as long as the program runs, and no longer: there is no
    /// window to take one back.
    static void RememberForThisRun(QWebEngineProfile& profile);

private:
    Question m_question;
};

} // namespace tallowmere
