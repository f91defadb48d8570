#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace tallowmere {

class WebAccess;

/// Answers the private scheme of the panes: `portal://pages/<name>` is a page that the program
/// wrote into its folder, `portal://help/<name>` a file of the user guide, and any other host is
/// answered by the built-in portal.
class PortalScheme : public QWebEngineUrlSchemeHandler {
    Q_OBJECT
public:
    /// `programFolder` holds the generated pages.
    PortalScheme(const WebAccess& access, QString programFolder, QObject* parent);

    /// Makes the scheme known to the engine; called before the application object exists.
    static void Register();

    static QString Name() { return QStringLiteral("portal"); }
    /// The host under which the generated pages are found.
    static QString PagesHost() { return QStringLiteral("pages"); }
    /// The address of a generated page.
    static QUrl PageUrl(std::string_view name);
    /// The host under which the user guide is found, and the address of its first page: the same
    /// in all modes, so that it may be a start page.
    static QString HelpHost() { return QStringLiteral("help"); }
    static QString HelpAddress() { return QStringLiteral("portal://help/index.html"); }
    /// Whether an address is one of the user guide.
    static bool IsHelp(const QUrl& url) {
        return url.scheme() == Name() && url.host() == HelpHost();
    }

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    void AnswerPage(QWebEngineUrlRequestJob* job) const;
    void AnswerHelp(QWebEngineUrlRequestJob* job) const;

    const WebAccess& m_access;
    QString m_programFolder;
};

} // namespace tallowmere
