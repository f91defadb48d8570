#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebEngineFindTextResult>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A pane that shows the user guide of a folder.
struct Guide {
    explicit Guide(const QString& folder)
        : profile(home.filePath(u"engine"_s), home.path(), access, prompts),
          pane(profile, prompts) {
        access.SetHelpFolder(folder);
        pane.resize(800, 600);
        pane.show();
    }
    bool Show(const QString& address) {
        pane.Navigate(address);
        return Await([this] { return !pane.Busy(); });
    }
    PanePage* Page() { return profile.findChild<PanePage*>(); }
    QVariant Script(const QString& script) {
        QVariant result;
        bool isDone = false;
        Page()->runJavaScript(script, [&](const QVariant& value) {
            result = value;
            isDone = true;
        });
        return Await([&] { return isDone; }) ? result : QVariant();
    }

    QTemporaryDir home;
    TestPrompts prompts;
    WebAccess access{WebMode::Direct};
    EngineProfile profile;
    BrowserPane pane;
};

QString ShippedGuide() {
    return QStringLiteral(TALLOWMERE_SOURCE_DIR "/data/help");
}

void Write(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

/// A folder with a guide, and around it files that are none of its.
QString FolderWithSecrets() {
    static const QTemporaryDir folder;
    QDir(folder.path()).mkpath(u"help/inner"_s);
    for (const QString& name : {u"secret.html"_s, u"help/inner/secret.html"_s,
                                u"help/.secret.html"_s, u"help/secret.txt"_s})
        Write(folder.filePath(name), "<title>secret</title>");
    Write(folder.filePath(u"help/index.html"_s), "<title>guide</title>");
    return folder.filePath(u"help"_s);
}

} // namespace

class UserGuideTest : public QObject {
    Q_OBJECT
private:
    /// The same pane for all rows of a test. The engine does not outlive the application: it ends
    /// with the last test.
    Guide& OneGuide(const QString& folder) {
        if (!m_guide || m_folder != folder)
            m_guide = std::make_unique<Guide>(folder);
        m_folder = folder;
        return *m_guide;
    }

    std::unique_ptr<Guide> m_guide;
    QString m_folder;

private Q_SLOTS:
    void cleanupTestCase() { m_guide.reset(); }

    void ItIsShownWithAllItsPictures() {
        Guide guide(ShippedGuide());
        QVERIFY(guide.Show(PortalAddress::Help()));
        QCOMPARE(guide.pane.LocationURL(), PortalAddress::Help());
        QTRY_COMPARE(guide.Page()->title(), u"Tallowmere: user guide"_s);
        QTRY_COMPARE(guide.Script(u"[...document.images].filter(i => !i.complete).length"_s), 0);
        QVERIFY(guide.Script(u"document.images.length"_s).toInt() >= 10);
        QCOMPARE(guide.Script(u"[...document.images].filter(i => i.naturalWidth < 50 || !i.alt)"
                              ".map(i => i.src).join()"_s),
                 QString());
        // The stylesheet is there too.
        QCOMPARE(guide.Script(u"getComputedStyle(document.images[0]).display"_s), u"block"_s);
    }

    void EveryEntryOfItsContentsLeadsSomewhere() {
        Guide guide(ShippedGuide());
        QVERIFY(guide.Show(PortalAddress::Help()));
        QVERIFY(guide.Script(u"document.querySelectorAll('nav a').length"_s).toInt() >= 20);
        QCOMPARE(guide.Script(
                     u"[...document.querySelectorAll('a')].map(a => a.getAttribute('href'))"
                     ".filter(h => h !== 'licences.html' &&"
                     "             (!h.startsWith('#') || !document.querySelector(h))).join()"_s),
                 QString());
        QVERIFY(QFile::exists(ShippedGuide() + u"/licences.html"_s));
        QCOMPARE(guide.Script(u"[...document.querySelectorAll('h2')].filter(h => "
                              "!document.querySelector(`nav a[href='#${h.id}']`)).length"_s),
                 0);
    }

    void ThePanesFindSearchesIt_data() {
        QTest::addColumn<QString>("wanted");
        for (const char* word : {"Portfolios",   "Notes",         "broker",       "Smart navigate",
                                 "LCASETICK",    "Multi-links",   "Condensed",    "Report",
                                 "Reminders",    "Watch windows", "Ticker scan",  "Proxy",
                                 "Colours",      "Active edges",  "AutoRefresh",  "indices",
                                 "ticker strip", "New Sites",     "--web sample", "--profile",
                                 "Sites",        "Ctrl+L",        "Downloads",    "Tabs"})
            QTest::newRow(word) << QString::fromLatin1(word);
    }
    void ThePanesFindSearchesIt() {
        QFETCH(const QString, wanted);
        Guide& guide = OneGuide(ShippedGuide());
        if (guide.pane.LocationURL().isEmpty())
            QVERIFY(guide.Show(PortalAddress::Help()));
        QSignalSpy found(guide.Page(), &QWebEnginePage::findTextFinished);
        guide.pane.Find();
        auto* box = guide.pane.findChild<QLineEdit*>();
        QVERIFY(box);
        box->clear();
        found.clear();
        box->setText(wanted);
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_VERIFY(!found.isEmpty() &&
                    found.last()[0].value<QWebEngineFindTextResult>().numberOfMatches() > 0);
    }

    void NoAddressLeadsOutOfItsFolder_data() {
        QTest::addColumn<QString>("path");
        for (const char* path :
             {"../secret.html", "%2e%2e/secret.html", "..%2fsecret.html", "%2e%2e%2fsecret.html",
              "..%5csecret.html", "/secret.html", "./../secret.html", "inner/secret.html",
              "inner%2fsecret.html", ".secret.html", "secret.html%00.png", "SECRET.HTML",
              "index.html%0a", "secret.txt", "", "index.html/../../secret.html",
              "%252e%252e/secret.html"})
            QTest::newRow(path) << QString::fromLatin1(path);
    }
    void NoAddressLeadsOutOfItsFolder() {
        QFETCH(const QString, path);
        Guide& guide = OneGuide(FolderWithSecrets());
        QVERIFY(guide.Show(PortalAddress::Help()));
        QTRY_COMPARE(guide.Page()->title(), u"guide"_s);
        guide.Show(u"portal://help/"_s + path);
        QVERIFY(!guide.Page()->title().contains(u"secret"_s));
        // The page itself cannot read it either.
        const QString text =
            guide
                .Script(u"(() => { const r = new XMLHttpRequest(); try { r.open('GET', "
                        "'portal://help/%1', false); r.send(); return r.responseText; } "
                        "catch (e) { return 'refused'; } })()"_s.arg(path))
                .toString();
        QVERIFY2(!text.contains(u"secret"_s), qPrintable(text));
    }

    void APageThatIsNotThereFailsInWords() {
        Guide guide(ShippedGuide());
        guide.Show(u"portal://help/nothing.html"_s);
        QVERIFY(guide.pane.findChild<QFrame*>(u"PaneNotice"_s)->isVisible());
    }
};

TALLOWMERE_WEB_TEST_MAIN(UserGuideTest)
#include "UserGuideTest.moc"
