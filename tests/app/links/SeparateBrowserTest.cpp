#include "app/links/SeparateBrowser.h"
#include "core/sites/site_table.h"

#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "core/sites/site_resolver.h"
#include "support/TestPrompts.h"

#include <QDesktopServices>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// Programs of the test's own, which write down how they were called.
struct Bench {
    Bench() : table(SiteTable::Parse({}, "sites.toml")) {}

    /// Makes a script `name` and gives its path.
    QString Program(const QString& name) {
        QFile script(folder.filePath(name));
        if (!script.open(QIODevice::WriteOnly))
            qFatal("no script");
        script.write("#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + LogOf(name).toUtf8() + ".new'\nmv '" +
                     LogOf(name).toUtf8() + ".new' '" + LogOf(name).toUtf8() + "'\n");
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script.fileName();
    }
    void Use(const QByteArray& programs) {
        table = SiteTable::Parse(("[programs]\n" + programs).toStdString(), "sites.toml");
    }
    QString LogOf(const QString& name) const { return folder.filePath(name + u".log"_s); }
    QString Called(const QString& name) const {
        QFile log(LogOf(name));
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }

    QTemporaryDir folder;
    TestPrompts prompts;
    SiteTable table;
    WebAccess access{WebMode::Direct};
    SeparateBrowser outside{table, access, prompts, ToPath(folder.path())};
};

} // namespace

class SeparateBrowserTest : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void OpenOnDesktop(const QUrl& url) { m_onDesktop << url.toString(); }

private Q_SLOTS:
    void init() {
        m_onDesktop.clear();
        for (const char* scheme : {"http", "https", "mailto", "file"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "OpenOnDesktop");
    }
    void cleanup() {
        for (const char* scheme : {"http", "https", "mailto", "file"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    void TheBrowserOfTheTableGetsTheAddressAsOneArgument() {
        Bench bench;
        bench.Use("browser = '\"" + bench.Program(u"my browser"_s).toUtf8() + "\" --new-window'");
        bench.outside.Open(u"q.example/q?s=a b&d='t;rm'"_s);
        QTRY_COMPARE(bench.Called(u"my browser"_s),
                     u"--new-window\nhttp://q.example/q?s=a%20b&d='t;rm'\n"_s);
        QVERIFY(bench.prompts.messages.isEmpty());
        QVERIFY(m_onDesktop.isEmpty());
    }

    void WithoutOneTheDesktopOpensTheAddress() {
        Bench bench;
        bench.outside.Open(u"https://q.example/q?s=msft"_s);
        QCOMPARE(m_onDesktop, QStringList{u"https://q.example/q?s=msft"_s});
        bench.outside.WriteMail(u"mailto:me@q.example"_s);
        QCOMPARE(m_onDesktop.value(1), u"mailto:me@q.example"_s);
        QVERIFY(bench.prompts.messages.isEmpty());
    }

    void NothingButPagesOfTheWebIsOpened() {
        Bench bench;
        bench.Use("browser = \"" + bench.Program(u"browser"_s).toUtf8() + "\"");
        const QString folder = bench.folder.path();
        const QStringList refused{folder,
                                  folder + u"/TickNotes.txt"_s,
                                  folder + u"/settings.ini"_s,
                                  folder + u"/sub/ycs.htm"_s,
                                  folder + u"/../ycs.htm"_s,
                                  folder + u"/../secret.mlnk"_s,
                                  u"file://"_s + folder + u"/ycs.htm"_s,
                                  u"/ycs.htm"_s,
                                  u"file:///etc/hosts"_s,
                                  u"/etc/hosts"_s,
                                  u"javascript:alert(1)"_s,
                                  u"--version"_s,
                                  u"http://"_s,
                                  QString()};
        for (const QString& address : refused)
            bench.outside.Open(address);
        bench.outside.WriteMail(u"http://q.example"_s);
        QCOMPARE(bench.prompts.messages.size(), refused.size() + 1);
        QVERIFY(m_onDesktop.isEmpty());
        bench.outside.Open(u"q.example"_s);
        QTRY_COMPARE(bench.Called(u"browser"_s), u"http://q.example\n"_s);
    }

    void PagesOfTheProgramsFolderOpenAsTheirFiles() {
        Bench bench;
        const QStringList pages{u"ycs.htm"_s,     u"ycl.htm"_s,       u"ycprint.html"_s,
                                u"report.html"_s, u"multiweb.html"_s, u"My page.mlnk"_s};
        for (const QString& page : pages)
            bench.outside.Open(bench.folder.filePath(page));
        QVERIFY(bench.prompts.messages.isEmpty());
        QCOMPARE(m_onDesktop.size(), pages.size());
        for (qsizetype i = 0; i < pages.size(); ++i)
            QCOMPARE(QUrl(m_onDesktop.at(i)).toLocalFile(), bench.folder.filePath(pages.at(i)));
        bench.Use("browser = \"" + bench.Program(u"browser"_s).toUtf8() + "\"");
        bench.outside.Open(bench.folder.filePath(u"My page.mlnk"_s));
        QTRY_COMPARE(bench.Called(u"browser"_s),
                     QUrl::fromLocalFile(bench.folder.filePath(u"My page.mlnk"_s))
                             .toString(QUrl::FullyEncoded) +
                         u'\n');
    }

    void InLiveModeTodaysPageOpens_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("opened");
        QTest::newRow("a link") << u"q.example/q?s=brk.b&d=2b"_s
                                << u"https://today.example/BRK-B"_s;
        QTest::newRow("one that only the portal answers, for a ticker")
            << u"q.example/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100"_s
            << u"https://quotes.example/MSFT"_s;
        QTest::newRow("one that only the portal answers, without a ticker")
            << u"http://q.example/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s
            << u"https://markets.example/"_s;
        QTest::newRow("what is no page of ours") << u"https://elsewhere.example/q?s=a&d=2b"_s
                                                 << u"https://elsewhere.example/q?s=a&d=2b"_s;
    }

    void InLiveModeTodaysPageOpens() {
        QFETCH(QString, address);
        const SiteTable sites =
            SiteTable::Parse("[hosts]\ndefault = \"q.example\"\n", "sites.toml");
        const TodayTable today = ReadTodayTable("[links]\n"
                                                "3 = \"https://today.example/{yahoo}\"\n"
                                                "15 = \"portal:\"\n"
                                                "index_page = \"portal:\"\n"
                                                "quote_page = \"https://quotes.example/{upper}\"\n"
                                                "outside = \"https://markets.example/\"\n",
                                                "sites.toml");
        Bench bench;
        WebAccess live(WebMode::Live);
        const SiteResolver resolver(sites, {}, today);
        live.SetResolver([&](const std::string& built, AddressUse use) {
            return resolver.Resolve(built, use).value_or(built);
        });
        SeparateBrowser(bench.table, live, bench.prompts, ToPath(bench.folder.path()))
            .Open(address);
        QTEST(m_onDesktop.value(0), "opened");
        QVERIFY(bench.prompts.messages.isEmpty());
    }

    void AProgramThatDoesNotStartIsReported() {
        Bench bench;
        bench.Use("browser = \"/nowhere/browser\"\nmail = \"/nowhere/mail\"");
        bench.outside.Open(u"q.example"_s);
        bench.outside.WriteMail(u"mailto:me@q.example"_s);
        QCOMPARE(bench.prompts.messages,
                 (QStringList{u"Quorvane: No browser could be started for q.example"_s,
                              u"Quorvane: No mail program could be started for "
                              "mailto:me@q.example"_s}));
    }

    void TheCalculatorOfTheTableComesFirstThenTheUsualOnes() {
        Bench bench;
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/bin:/usr/bin:" + bench.folder.path().toUtf8());
        bench.Program(u"galculator"_s);
        bench.Use("calculator = \"" + bench.Program(u"own"_s).toUtf8() + " -x\"");
        bench.outside.StartCalculator();
        QTRY_COMPARE(bench.Called(u"own"_s), u"-x\n"_s);
        bench.Use({});
        qputenv("PATH", bench.folder.path().toUtf8());
        bench.outside.StartCalculator();
        const bool isInstalled = QTest::qWaitFor(
            [&] { return QFile::exists(bench.LogOf(u"galculator"_s) + u".new"_s); }, 2000);
        QFile::remove(bench.folder.filePath(u"galculator"_s));
        bench.outside.StartCalculator();
        qputenv("PATH", path);
        QVERIFY(isInstalled);
        QCOMPARE(bench.prompts.messages,
                 QStringList{u"Quorvane: No calculator program was found."_s});
    }

private:
    QStringList m_onDesktop;
};

QTEST_GUILESS_MAIN(SeparateBrowserTest)
#include "SeparateBrowserTest.moc"
