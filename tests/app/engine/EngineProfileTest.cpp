#include "app/engine/EngineProfile.h"

#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// One run of the program on a profile folder that outlives it.
struct Run {
    explicit Run(const QString& folder)
        : profile(folder + u"/engine"_s, folder, access, prompts), pane(profile, prompts) {
        pane.resize(400, 300);
        pane.show();
    }
    bool Show(const QString& address) {
        pane.Navigate(address);
        return Await([this] { return !pane.Busy(); });
    }
    QString Title() { return profile.findChild<PanePage*>()->title(); }
    void Script(const QString& script) { profile.findChild<PanePage*>()->runJavaScript(script); }

    TestPrompts prompts;
    WebAccess access{WebMode::Direct};
    EngineProfile profile;
    BrowserPane pane;
};

} // namespace

class EngineProfileTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ALoginSurvivesARestartAndIsTheOwnersAlone() {
        CannedPage login{"<title>in</title>"};
        login.headers << "Set-Cookie: session=kept; Path=/";
        m_server.Serve(u"/login"_s, login);
        m_server.Serve(u"/home"_s, "<title>home</title>");
        {
            Run run(m_folder.path());
            QVERIFY(run.Show(m_server.Address(u"/login"_s)));
        }
        const QString cookies = m_folder.path() + u"/engine/Cookies"_s;
        QTRY_VERIFY(QFile::exists(cookies));
        QTest::qWait(300);
        QCOMPARE(QFile::permissions(m_folder.path() + u"/engine"_s) &
                     (QFile::ReadGroup | QFile::ReadOther | QFile::ExeGroup | QFile::ExeOther),
                 QFile::Permissions());
        Run run(m_folder.path());
        QVERIFY(run.Show(m_server.Address(u"/home"_s)));
        const auto sent = [&] { return m_heads.value(u"GET /home"_s); };
        QVERIFY2(sent().contains("Cookie: session=kept"), sent().constData());
    }

    void ADownloadAsksWhereToSave() {
        CannedPage file{"the file", CannedPage::Ending::Length, 200, "application/zip"};
        file.headers << "Content-Disposition: attachment; filename=\"list.zip\"";
        m_server.Serve(u"/list"_s, file);
        QTemporaryDir target;
        Run run(m_folder.path());
        QStringList states;
        connect(&run.profile, &EngineProfile::DownloadStatus, &run.pane,
                [&](const QString& text) { states << text; });
        QVERIFY(run.Show(m_server.Address(u"/list"_s)));
        QTRY_COMPARE(run.prompts.messages.size(), 1);
        QVERIFY(run.prompts.messages[0].startsWith(u"Save As: "));
        QVERIFY(run.prompts.messages[0].endsWith(u"/list.zip"));
        QVERIFY(!run.pane.findChild<PaneNotice*>()->isVisible());

        const QString path = target.filePath(u"my list.zip"_s);
        run.prompts.files << path;
        QVERIFY(run.Show(m_server.Address(u"/list"_s)));
        QTRY_COMPARE(states, (QStringList{u"Saving my list.zip"_s, u"Saved my list.zip"_s}));
        QFile saved(path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), QByteArray("the file"));
    }

    void WhatAPageAsksForIsRefusedUnlessTheUserSaysYes() {
        m_server.Serve(u"/asks"_s, "<title>asks</title>");
        const QString ask = u"Notification.requestPermission().then(a => document.title = a)"_s;
        {
            Run run(m_folder.path());
            QVERIFY(run.Show(m_server.Address(u"/asks"_s)));
            run.Script(ask);
            QTRY_COMPARE(run.Title(), u"denied"_s);
            QCOMPARE(run.prompts.messages.size(), 1);
            QVERIFY(run.prompts.messages[0].startsWith(u"Quorvane: "));
            QVERIFY(run.prompts.messages[0].contains(m_server.Address({})));
            run.Script(u"navigator.geolocation.getCurrentPosition(() => document.title = 'found',"
                       " e => document.title = 'refused ' + e.code)"_s);
            QTRY_COMPARE(run.Title(), u"refused 1"_s);
            QCOMPARE(run.prompts.messages.size(), 2);
        }
        Run run(m_folder.path());
        run.prompts.answers << true;
        QVERIFY(run.Show(m_server.Address(u"/asks"_s)));
        run.Script(ask);
        QTRY_COMPARE(run.Title(), u"granted"_s);
        run.Script(u"document.documentElement.requestFullscreen().catch("
                   "() => document.title = 'small')"_s);
        QTRY_COMPARE(run.Title(), u"small"_s);
        QCOMPARE(run.prompts.messages.size(), 1);
    }

    void MessagesOfPagesGoThroughThePrompts() {
        m_server.Serve(u"/talks"_s,
                       "<script>alert('hello'); document.title = confirm('sure?') + ' ' +"
                       " prompt('name?', 'me')</script>");
        Run run(m_folder.path());
        run.prompts.answers << true;
        run.prompts.inputs << u"you"_s;
        QVERIFY(run.Show(m_server.Address(u"/talks"_s)));
        QTRY_COMPARE(run.Title(), u"true you"_s);
        QCOMPARE(run.prompts.messages, (QStringList{u"127.0.0.1: hello"_s, u"127.0.0.1: sure?"_s,
                                                    u"127.0.0.1: name?"_s}));
    }

    void ABadCertificateIsRefused() {
        const QString openssl = QStandardPaths::findExecutable(u"openssl"_s);
        if (openssl.isEmpty())
            QSKIP("openssl makes the certificate, and is not installed");
        const QString key = m_folder.filePath(u"key.pem"_s);
        const QString certificate = m_folder.filePath(u"certificate.pem"_s);
        QCOMPARE(
            QProcess::execute(openssl, {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s,
                                        u"-nodes"_s, u"-subj"_s, u"/CN=127.0.0.1"_s, u"-addext"_s,
                                        u"subjectAltName=IP:127.0.0.1"_s, u"-days"_s, u"2"_s,
                                        u"-keyout"_s, key, u"-out"_s, certificate}),
            0);
        QSslConfiguration tls;
        tls.setLocalCertificate(QSslCertificate::fromPath(certificate).value(0));
        QFile keyFile(key);
        QVERIFY(keyFile.open(QIODevice::ReadOnly));
        tls.setPrivateKey(QSslKey(&keyFile, QSsl::Rsa));
        QSslServer server;
        server.setSslConfiguration(tls);
        QVERIFY(server.listen(QHostAddress::LocalHost));
        connect(&server, &QTcpServer::pendingConnectionAvailable, this, [&] {
            while (QTcpSocket* socket = server.nextPendingConnection())
                m_server.Attend(socket);
        });
        m_server.Serve(u"/secret"_s, "<title>secret</title>");
        Run run(m_folder.path());
        QVERIFY(run.Show(u"https://127.0.0.1:"_s + QString::number(server.serverPort()) +
                         u"/secret"_s));
        QVERIFY(run.pane.findChild<PaneNotice*>()->isVisible());
        QVERIFY(run.pane.findChild<QLabel*>(u"NoticeText"_s)->text().contains(u"certificate"));
        QCOMPARE(m_server.CountOf(u"/secret"_s), 0);
    }

    void initTestCase() {
        connect(&m_server, &LoopbackServer::Requested, this,
                [this](const QString& request) { m_heads[request] = m_server.LastHead(); });
    }

private:
    LoopbackServer m_server;
    QTemporaryDir m_folder;
    QHash<QString, QByteArray> m_heads;
};

TALLOWMERE_WEB_TEST_MAIN(EngineProfileTest)
#include "EngineProfileTest.moc"
