#include "app/custom/MultiLinks.h"
#include "app/custom/CustomEditor.h"
#include "app/engine/BrowserPane.h"
#include "core/text/bytes.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/FullDisk.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QProxyStyle>
#include <QPushButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRecord = 211;
const std::string kHead =
    R"(<html><head><title></title></head><body topmargin="0" leftmargin="0">)";
const std::string kTail = "</body></html>";

std::string Frame(const std::string& address) {
    return R"(<IFRAME height="100%" width="100%" SCROLLING=Yes SRC=")" + address +
           "\"></IFRAME>\r\n";
}

/// A style of a desktop whose user wants no animations.
class StillStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

class MultiLinksTest : public QObject {
    Q_OBJECT
private:
    static void Prepare(TestSession& session) {
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|ibm.x|");
    }
    static void StoreLink(TestSession& session, int slot, const char* title, const char* address) {
        const std::string number = std::to_string(slot);
        session.Store(("Custom" + number).c_str(), address);
        session.Store(("CustomT" + number).c_str(), title);
        session.Store(("CustomF" + number).c_str(), "255");
        session.Store(("CustomB" + number).c_str(), "65280");
    }
    static std::string File(TestSession& session, const char* name) {
        return ReadExistingFile(session.Folder() / name);
    }
    static bool Exists(TestSession& session, const char* name) {
        return std::filesystem::exists(session.Folder() / name);
    }
    static bool ShowsDisplayPage(TestSession& session) {
        const QString page = PathToQt(session.Folder() / "multiweb.html");
        return Await([&] { return session.Form().Web->LocationURL() == page; });
    }
    static void StartFromEditor(TestSession& session, int slot, const QString& title) {
        session.ClickLink(slot);
        const frmCustom* editor = session->Editor().Editor();
        editor->txtTitle->setFocus();
        editor->txtTitle->selectAll();
        QTest::keyClicks(editor->txtTitle, title);
        QTest::mouseClick(editor->cmdMulti, Qt::LeftButton);
    }
    /// The address of the first page, once it is there.
    static QString FirstPage(TestSession& session) {
        const BrowserPane& web = *session.Form().Web;
        [[maybe_unused]] const bool loaded =
            Await([&] { return !web.Busy() && !web.LocationURL().isEmpty(); });
        return web.LocationURL();
    }
    /// Clicks a link while no file can grow beyond 64 KB; what goes wrong is told to the session.
    static void ClickOnFullDisk(TestSession& session, int link) {
        auto& application = static_cast<Application&>(*qApp);
        application.SetPrompts(&session.prompts);
        {
            const FullDisk disk(65536);
            session.ClickLink(link);
        }
        application.SetPrompts(nullptr);
    }
    static void Tick(QTimer& timer) {
        QTimerEvent event(timer.timerId());
        QCoreApplication::sendEvent(&timer, &event);
    }

private Q_SLOTS:
    void OnlyLinksWithATickerCanBeRecorded() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 101, "With", "http://h.example/?s=LCASETICK");
        StoreLink(session, 102, "Without", "http://h.example/");
        StoreLink(session, 103, "Upper", "http://h.example/?s=UCASETICK");
        session.Start();
        session.ClickLink(kRecord);
        for (const Chip* link : session.Form().lbllink) {
            const int index = link->Index();
            const QString tag = link->property("tag").toString();
            bool enabled = tag == u"MB" || tag == u"CQ" || tag == u"NR";
            if (QList{0, 19, 20, 27, 28}.contains(index))
                enabled = false;
            if (QList{211, 30, 190, 101, 103}.contains(index))
                enabled = true;
            QVERIFY2(link->isEnabled() == enabled, qPrintable(link->objectName()));
        }
        session.ClickLink(kRecord);
        for (const Chip* link : session.Form().lbllink)
            QVERIFY(link->isEnabled());
    }

    void TheMenuBarOffersNoMoreThanTheLinks() {
        TestSession session;
        session.Start();
        session.ClickLink(kRecord);
        for (const auto& [command, index] : session.Form().menus->links)
            QCOMPARE(command->isEnabled(), index == kRecord);
        session.ClickLink(kRecord);
        for (const auto& command : session.Form().menus->links)
            QVERIFY(command.first->isEnabled());
    }

    void ThreeLinksMakeAPageOfThreeFrames() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 101, "Mine", "http://h.example/a b%02?s=UCASETICK&x=%26q%3d ");
        session.Start();
        const QString before = FirstPage(session);
        session.ClickLink(kRecord);
        session.ClickLink(3);
        session.ClickLink(47);
        session.ClickLink(101);
        QCOMPARE(session.Form().Web->LocationURL(), before);
        QVERIFY(!Exists(session, "multiweb.html"));
        session.ClickLink(kRecord);
        QCOMPARE(File(session, "multiweb.html"),
                 kHead + Frame("h.example/q?s=msft&d=2b") + Frame("h.example/p/m/msft.html") +
                     Frame("http://h.example/a b%02?s=MSFT&x=%26q%3d ") + kTail);
        QVERIFY(ShowsDisplayPage(session));
        QVERIFY(!session->Recorded().templateMode);
    }

    void WhatIsRecordedWithoutATickerKeepsItsPlaceholders() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        for (const int link : {kRecord, 3, kRecord})
            session.ClickLink(link);
        QCOMPARE(File(session, "multiweb.html"),
                 kHead + Frame("h.example/q?s=LCASETICK&d=2b") + kTail);
        QCOMPARE(session.prompts.messages, QStringList());
    }

    void ARecordedChartPageIsMadeForTheTickerThatItIsShownFor() {
        TestSession session;
        Prepare(session);
        session.Start();
        StartFromEditor(session, 110, u"Charts"_s);
        session.ClickLink(6);
        session.ClickLink(175);
        session.ClickLink(kRecord);
        const std::string frames = Frame((session.Folder() / "ycs.htm").string()) +
                                   Frame((session.Folder() / "ycl.htm").string());
        QCOMPARE(File(session, "Charts.mlnk"), kHead + frames + kTail + "\r\n");
        session.Form().List1->SetListIndex(1);
        session.ClickLink(110);
        QCOMPARE(File(session, "multiweb.html"), kHead + frames + kTail + "\r\n");
        for (const char* page : {"ycs.htm", "ycl.htm"}) {
            QVERIFY(Contains(File(session, page), "h.example/q?s=IBM.X&amp;d=1d"));
            QVERIFY(!Contains(File(session, page), "CASETICK"));
        }
    }

    void NothingRecordedShowsNothing() {
        TestSession session;
        Prepare(session);
        session.Start();
        WriteWholeFile(session.Folder() / "multiweb.html", "old");
        const QString before = FirstPage(session);
        session.ClickLink(kRecord);
        QVERIFY(session->Recorded().templateMode);
        session.ClickLink(kRecord);
        QVERIFY(!session->Recorded().templateMode);
        QCOMPARE(File(session, "multiweb.html"), "old");
        QCOMPARE(session.Form().Web->LocationURL(), before);
    }

    void ARecordingFromTheEditorIsStoredAndNotShown() {
        TestSession session;
        Prepare(session);
        session.Start();
        const QString before = FirstPage(session);
        StartFromEditor(session, 110, u"Two"_s);
        session.ClickLink(3);
        session.ClickLink(15);
        session.ClickLink(kRecord);
        QCOMPARE(File(session, "Two.mlnk"),
                 kHead + Frame("h.example/q?s=LCASETICK&d=2b") +
                     Frame("h.example/cgi-bin/AW/DoInquiry.zcom?ticker=UCASETICK&type=100") +
                     kTail + "\r\n");
        QVERIFY(!Exists(session, "multiweb.html"));
        QCOMPARE(session.Form().Web->LocationURL(), before);
        QVERIFY(!session->Recorded().multiLinkPending);
        QCOMPARE(session.Stored("Custom110"), u"MULTILINK:Two.mlnk"_s);
    }

    void ARecordingFromTheEditorWithoutALinkIsStoredAllTheSame() {
        TestSession session;
        session.Start();
        StartFromEditor(session, 110, u"None"_s);
        session.ClickLink(kRecord);
        QCOMPARE(File(session, "None.mlnk"), kHead + kTail + "\r\n");
    }

    void ACaptionChangedMeanwhileNamesThePageFile() {
        TestSession session;
        Prepare(session);
        session.Start();
        StartFromEditor(session, 110, u"Before"_s);
        session.Link(110)->SetCaption(u"After"_s);
        session.ClickLink(3);
        session.ClickLink(kRecord);
        QVERIFY(Exists(session, "After.mlnk"));
        QVERIFY(!Exists(session, "Before.mlnk"));
        QCOMPARE(session.Stored("Custom110"), u"MULTILINK:Before.mlnk"_s);
    }

    void ACaptionThatLeavesTheFolderStoresNothing() {
        TestSession session;
        session.Start();
        StartFromEditor(session, 110, u"Before"_s);
        session.Link(110)->SetCaption(u"../After"_s);
        session.ClickLink(kRecord);
        QCOMPARE(session.prompts.messages.size(), 1);
        QVERIFY(!std::filesystem::exists(session.Folder().parent_path() / "After.mlnk"));
        QVERIFY(!session->Recorded().templateMode);
        QVERIFY(!session->Recorded().multiLinkPending);
    }

    void TheLinkBlinksWhileARecordingIsOn() {
        TestSession session;
        session.Start();
        QTimer& timer = session->Recording().Timer4;
        QCOMPARE(timer.interval(), 500);
        QVERIFY(!timer.isActive());
        const ColorPair colors = session.Link(kRecord)->Colors();
        QCOMPARE(colors, (ColorPair{0x80000008, 0x80FF80}));
        session.ClickLink(kRecord);
        QVERIFY(timer.isActive());
        Tick(timer);
        QCOMPARE(session.Link(kRecord)->Colors(), Swapped(colors));
        Tick(timer);
        QCOMPARE(session.Link(kRecord)->Colors(), colors);
        Tick(timer);
        session.ClickLink(kRecord);
        QVERIFY(!timer.isActive());
        QCOMPARE(session.Link(kRecord)->Colors(), colors);
    }

    void WithoutAnimationsTheLinkChangesOnceAndStays() {
        TestSession session;
        session.Start();
        StillStyle still;
        session.Link(kRecord)->setStyle(&still);
        const ColorPair colors = session.Link(kRecord)->Colors();
        session.ClickLink(kRecord);
        QVERIFY(!session->Recording().Timer4.isActive());
        QCOMPARE(session.Link(kRecord)->Colors(), Swapped(colors));
        session.ClickLink(kRecord);
        QCOMPARE(session.Link(kRecord)->Colors(), colors);
        session.Link(kRecord)->setStyle(nullptr);
    }

    void RecordedLinksStaySwappedUntilTheEnd() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 101, "Mine", "http://h.example/?s=LCASETICK");
        session.Settings().SaveSetting("Colors", "fWSR", "255");
        session.Start();
        const ColorPair quote = session.Link(3)->Colors();
        session.ClickLink(kRecord);
        session.ClickLink(3);
        session.ClickLink(101);
        QCOMPARE(session.Link(3)->Colors(), Swapped(quote));
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{65280, 255}));
        session.ClickLink(kRecord);
        QCOMPARE(session.Link(3)->Colors(), quote);
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{255, 65280}));
        QCOMPARE(session.Link(kRecord)->Colors(), (ColorPair{255, 0x80FF80}));
    }

    void AStoredMultiLinkIsShownForTheSelectedTicker() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 105, "Stored", "MULTILINK:Stored.mlnk");
        session.Start();
        WriteWholeFile(session.Folder() / "Stored.mlnk",
                       Frame("http://h.example/LEFTONE/LCASETICK/UCASETICK?s=LCASETICK"));
        session.Form().List1->SetListIndex(1);
        session.ClickLink(105);
        QCOMPARE(File(session, "multiweb.html"), Frame("http://h.example/i/ibm.x/IBM.X?s=ibm.x"));
        QVERIFY(ShowsDisplayPage(session));
    }

    void AStoredMultiLinkNeedsATicker() {
        TestSession session;
        session.Store("First", "OK");
        StoreLink(session, 105, "Stored", "MULTILINK:Stored.mlnk");
        session.Start();
        WriteWholeFile(session.Folder() / "Stored.mlnk", "page");
        session.ClickLink(105);
        QCOMPARE(session.prompts.messages, QStringList{u"Quorvane: Select a Ticker..."_s});
        QVERIFY(!Exists(session, "multiweb.html"));
    }

    void AFullDiskIsToldOfAndEndsTheRecordingAllTheSame() {
        TestSession session;
        Prepare(session);
        const std::string address = "http://h.example/LCASETICK" + std::string(100'000, 'a');
        StoreLink(session, 101, "Long", address.c_str());
        session.Start();
        StartFromEditor(session, 110, u"Big"_s);
        session.ClickLink(101);
        ClickOnFullDisk(session, kRecord);
        QCOMPARE(session.prompts.messages.size(), 1);
        QVERIFY(session.prompts.messages[0].startsWith(u"Quorvane: "_s));
        QVERIFY(session.prompts.messages[0].contains(u"Big.mlnk"_s));
        QVERIFY(!Exists(session, "Big.mlnk"));
        QVERIFY(!Exists(session, "Big.mlnk.tmp"));
        QVERIFY(!session->Recorded().templateMode);
        QVERIFY(!session->Recorded().multiLinkPending);
        QCOMPARE(session.Stored("Custom110"), u"MULTILINK:Big.mlnk"_s);
    }

    void OnAFullDiskThePageThatWasShownStays() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 105, "Stored", "MULTILINK:Stored.mlnk");
        session.Start();
        const std::string page = Frame("http://h.example/" + std::string(100'000, 'a'));
        WriteWholeFile(session.Folder() / "Stored.mlnk", page);
        WriteWholeFile(session.Folder() / "multiweb.html", "old");
        const QString before = FirstPage(session);
        ClickOnFullDisk(session, 105);
        QCOMPARE(session.prompts.messages.size(), 1);
        QCOMPARE(File(session, "multiweb.html"), "old");
        QCOMPARE(File(session, "Stored.mlnk"), page);
        QCOMPARE(session.Form().Web->LocationURL(), before);
    }

    void APageFileThatWasCutOffIsShownAsFarAsItGoes() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 105, "Cut", "MULTILINK:Cut.mlnk");
        session.Start();
        const std::string cut = kHead + Frame("http://h.example/msft") + "<IFRAME height=\"100";
        WriteWholeFile(session.Folder() / "Cut.mlnk", cut);
        session.ClickLink(105);
        QCOMPARE(File(session, "multiweb.html"), cut);
        QVERIFY(ShowsDisplayPage(session));
        QCOMPARE(session.prompts.messages, QStringList());
    }

    void APageFileThatIsGoneOrEmptyShowsNothing() {
        TestSession session;
        Prepare(session);
        StoreLink(session, 105, "Gone", "MULTILINK:Gone.mlnk");
        StoreLink(session, 106, "Empty", "MULTILINK:Empty.mlnk");
        StoreLink(session, 107, "Outside", "MULTILINK:../Outside.mlnk");
        session.Start();
        const auto outside = session.Folder().parent_path() / "Outside.mlnk";
        WriteWholeFile(outside, "page");
        WriteWholeFile(session.Folder() / "Empty.mlnk", "");
        const QString before = FirstPage(session);
        for (const int slot : {105, 106, 107})
            session.ClickLink(slot);
        std::filesystem::remove(outside);
        QVERIFY(!Exists(session, "multiweb.html"));
        QCOMPARE(session.Form().Web->LocationURL(), before);
        QCOMPARE(session.prompts.messages, QStringList());
    }
};

TALLOWMERE_WEB_TEST_MAIN(MultiLinksTest)
#include "MultiLinksTest.moc"
