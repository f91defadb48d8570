#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace tallowmere {

class SourcePages;
class WebAccess;

/// Answers the private scheme of the panes: `portal://<its own host>/<name>` is a page that the
/// program wrote into its folder, `portal://help/<name>` a file of the user guide,
/// `portal://source/<number>` the source of another page, and any other host is answered by the
/// built-in portal. Pages are handed out with a policy that lets no script run but the program's
/// own.
class PortalScheme : public QWebEngineUrlSchemeHandler {
    Q_OBJECT
public:
    /// `programFolder` holds the generated pages.
    PortalScheme(const WebAccess& access, QString programFolder, const SourcePages& sources,
                 QObject* parent);

    /// Makes the scheme known to the engine; called before the application object exists.
    static void Register();

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    void AnswerPage(QWebEngineUrlRequestJob* job) const;
    void AnswerHelp(QWebEngineUrlRequestJob* job) const;
    void AnswerSource(QWebEngineUrlRequestJob* job) const;

    const WebAccess& m_access;
    QString m_programFolder;
    const SourcePages& m_sources;
};

} // namespace tallowmere
