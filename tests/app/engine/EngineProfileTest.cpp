#include "app/engine/EngineProfile.h"

#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/DownloadList.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PageReplies.h"
#include "support/PaneRun.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QSignalSpy>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWebEngineView>

#include <memory>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Run : PaneRun {
    using PaneRun::PaneRun;

    QString Title() { return profile.findChild<PanePage*>()->title(); }
    void Script(const QString& script) { profile.findChild<PanePage*>()->runJavaScript(script); }
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

    void ASiteThatIsCalledInByAnotherKeepsNoCookies() {
        CannedPage tracker{"x", CannedPage::Ending::Length, 200, "text/javascript"};
        tracker.headers << "Set-Cookie: who=you; Path=/; SameSite=None; Secure";
        m_server.Serve(u"/track"_s, tracker);
        const QByteArray address =
            "http://localhost:" + QByteArray::number(m_server.serverPort()) + "/track";
        m_server.Serve(u"/visit"_s, "<script>const get = n => new Promise(done => {"
                                    "  const script = document.createElement('script');"
                                    "  script.src = '" +
                                        address +
                                        "?' + n; script.onload = done;"
                                        "  document.documentElement.append(script) });"
                                        "get(1).then(() => get(2))</script>");
        Run run(m_folder.path());
        QVERIFY(run.Show(m_server.Address(u"/visit"_s)));
        QTRY_COMPARE(m_server.CountOf(u"/track?2"_s), 1);
        QVERIFY(!m_heads.value(u"GET /track?2"_s).contains("Cookie:"));
        // The same site keeps its own when it is visited itself.
        QVERIFY(run.Show(u"localhost:%1/track?3"_s.arg(m_server.serverPort())));
        QVERIFY(run.Show(u"localhost:%1/track?4"_s.arg(m_server.serverPort())));
        QVERIFY(m_heads.value(u"GET /track?4"_s).contains("Cookie: who=you"));
    }

    void ADownloadAsksWhereToSave() {
        CannedPage file{"the file", CannedPage::Ending::Length, 200, "application/zip"};
        file.headers << "Content-Disposition: attachment; filename=\"list.zip\"";
        m_server.Serve(u"/list"_s, file);
        QTemporaryDir target;
        Run run(m_folder.path());
        QStringList states;
        connect(&run.profile.Downloads(), &DownloadList::Status, &run.pane,
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

    void ASiteChoosesNoFolder_data() {
        QTest::addColumn<QByteArray>("disposition");
        QTest::addColumn<QString>("name");
        QTest::newRow("above") << QByteArray("filename=\"../x\"") << u"x"_s;
        QTest::newRow("absolute") << QByteArray("filename=\"/etc/x\"") << u"x"_s;
        QTest::newRow("encoded") << QByteArray("filename*=UTF-8''..%2F..%2Fx") << u"x"_s;
        QTest::newRow("twice encoded") << QByteArray("filename=\"%2e%2e%2fx\"") << u"x"_s;
        QTest::newRow("hidden") << QByteArray("filename=\".bashrc\"") << u"bashrc"_s;
        QTest::newRow("direction")
            << QByteArray("filename*=UTF-8''a%E2%80%AEfdp.csv") << u"afdp.csv"_s;
    }
    void ASiteChoosesNoFolder() {
        QFETCH(const QByteArray, disposition);
        QFETCH(const QString, name);
        CannedPage file{"the file", CannedPage::Ending::Length, 200, "application/zip"};
        file.headers << "Content-Disposition: attachment; " + disposition;
        m_server.Serve(u"/file"_s, file);
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
        Run run(m_folder.path());
        for (int time = 1; time <= 2; ++time) {
            QVERIFY(run.Show(m_server.Address(u"/file"_s)));
            QTRY_COMPARE(run.prompts.messages.size(), time);
            // The engine itself may have changed the name, and never to one with a folder.
            const QString path = run.prompts.messages.last().mid(u"Save As: "_s.size());
            QCOMPARE(QFileInfo(path).absolutePath(), QDir(folder).absolutePath());
            const QString shown = QFileInfo(path).fileName();
            QVERIFY2(shown == name || shown.endsWith(u'_' + name), qPrintable(shown));
        }
    }

    void AProgramIsSavedAfterAWarningAndIsNotMadeToRun() {
        CannedPage file{"#!/bin/sh\n", CannedPage::Ending::Length, 200, "application/x-sh"};
        file.headers << "Content-Disposition: attachment; filename=\"list.sh\"";
        m_server.Serve(u"/program"_s, file);
        QTemporaryDir target;
        const QString path = target.filePath(u"list.sh"_s);
        Run run(m_folder.path());
        run.prompts.files << path;
        QVERIFY(run.Show(m_server.Address(u"/program"_s)));
        QTRY_COMPARE(run.prompts.messages.size(), 2);
        QVERIFY(run.prompts.messages[1].contains(u"list.sh is a program"));
        QVERIFY(run.prompts.messages[1].contains(u"127.0.0.1"));
        QVERIFY(!QFile::exists(path)); // nobody said yes

        // Not even in the place of a program that may run.
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.close();
        QVERIFY(old.setPermissions(old.permissions() | QFile::ExeOwner));
        run.prompts.files << path;
        run.prompts.answers << true;
        QSignalSpy states(&run.profile.Downloads(), &DownloadList::Status);
        QVERIFY(run.Show(m_server.Address(u"/program"_s)));
        QTRY_VERIFY(!states.isEmpty() && states.last().first().toString() == u"Saved list.sh");
        QVERIFY(QFileInfo(path).size() > 0);
        QVERIFY(!QFileInfo(path).isExecutable());
    }

    void WhatAPageSavesByItselfIsAskedAboutOnce() {
        CannedPage file{"the file", CannedPage::Ending::Length, 200, "application/zip"};
        file.headers << "Content-Disposition: attachment; filename=\"list.zip\"";
        m_server.Serve(u"/storm.zip"_s, file);
        m_server.Serve(u"/storms"_s,
                       "<body style='margin:0'><a id=l href='/storm.zip' style='display:block;"
                       "height:300px'>x</a><script>n = 0; setInterval(() => { if (n++ < 5)"
                       " { l.click() } else { document.title = 'over' } }, 100)</script>");
        Run run(m_folder.path());
        QSignalSpy states(&run.profile.Downloads(), &DownloadList::Status);
        QVERIFY(run.Show(m_server.Address(u"/storms"_s)));
        QTRY_COMPARE(run.Title(), u"over"_s);
        QTRY_VERIFY(states.size() >= 1);
        QCOMPARE(run.prompts.messages.size(), 1);
        // What the user clicks is asked about again.
        QTest::mouseClick(run.pane.findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, {},
                          {100, 100});
        QTRY_COMPARE(run.prompts.messages.size(), 2);
    }

    void WhatAPageAsksForIsRefusedUnlessTheUserSaysYes() {
        m_server.Serve(u"/asks"_s, "<title>asks</title>");
        const QString ask = u"Notification.requestPermission().then(a => document.title = a)"_s;
        {
            Run run(m_folder.path());
            PageReplies replies(run.pane);
            QVERIFY(run.Show(m_server.Address(u"/asks"_s)));
            run.Script(ask);
            QTRY_COMPARE(run.Title(), u"denied"_s);
            QCOMPARE(replies.asked.size(), 1);
            QVERIFY(replies.asked[0].contains(u"show notifications"));
            QVERIFY(replies.asked[0].contains(m_server.Address({})));
            run.Script(u"navigator.geolocation.getCurrentPosition(() => document.title = 'found',"
                       " e => document.title = 'refused ' + e.code)"_s);
            QTRY_COMPARE(run.Title(), u"refused 1"_s);
            QCOMPARE(replies.asked.size(), 2);
        }
        Run run(m_folder.path());
        PageReplies replies(run.pane);
        replies.replies = {{"QuestionYes"}};
        QVERIFY(run.Show(m_server.Address(u"/asks"_s)));
        run.Script(ask);
        QTRY_COMPARE(run.Title(), u"granted"_s);
        run.Script(u"document.documentElement.requestFullscreen().catch("
                   "() => document.title = 'small')"_s);
        QTRY_COMPARE(run.Title(), u"small"_s);
        QCOMPARE(replies.asked.size(), 1);
        QVERIFY(run.prompts.messages.isEmpty());
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
