#include "app/links/SitePopups.h"
#include "app/engine/BrowserPane.h"
#include "app/links/PaneDeck.h"
#include "app/links/SearchMenu.h"
#include "app/market/ActiveEdges.h"
#include "core/links/site_menus.h"
#include "core/sites/site_table.h"
#include "core/text/files.h"
#include "support/Navigations.h"
#include "support/OutsideBrowser.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QFile>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kBigLink = 4;
constexpr int kUpDownLink = 25;
constexpr int kMegaLink = 65;
constexpr int kOnlineBrokersLink = 89;

MenuTable ShippedMenus() {
    return MenuTable::Parse(ReadExistingFile(TALLOWMERE_SOURCE_DIR "/data/menus.toml"),
                            "menus.toml");
}

} // namespace

class SitePopupsTest : public QObject {
    Q_OBJECT
private:
    /// A window with MSFT selected whose menus lead where the shipped ones do.
    struct Window : TestSession {
        Window() {
            menus = ShippedMenus();
            Store("First", "OK");
            Store("Stocks1", "MSFT|");
            Start();
            navigations.emplace(Form());
        }
        /// Opens the menu of a link by keyboard.
        QMenu* Open(int link, Qt::Key key = Qt::Key_Return) {
            Link(link)->setFocus();
            QTest::keyClick(Link(link), key);
            return qobject_cast<QMenu*>(QApplication::activePopupWidget());
        }
        SiteTable Sites() const {
            return SiteTable::Parse("[hosts]\ndefault = \"h.example\"\n", "sites.toml");
        }
        std::optional<Navigations> navigations;
    };

    /// All menus below, and the menu itself.
    static QList<QMenu*> WithSubmenus(QMenu* menu) {
        QList<QMenu*> menus{menu};
        for (const QAction* action : menu->actions())
            if (action->menu())
                menus << WithSubmenus(action->menu());
        return menus;
    }

    static QStringList Captions(const QMenu* menu) {
        QStringList captions;
        for (const QAction* action : menu->actions())
            if (!action->isSeparator())
                captions << action->text();
        return captions;
    }

    static QString Current(const QMenu* menu) {
        return menu->activeAction() ? menu->activeAction()->text() : QString();
    }

private Q_SLOTS:
    void EachLinkWithAMenuOpensItByEnterAndBySpace() {
        Window window;
        int opened = 0;
        for (const SiteMenu& row : SiteMenus()) {
            if (row.link == kNoLink)
                continue;
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
                QMenu* menu = window.Open(row.link, key);
                QVERIFY2(menu, row.name.data());
                QCOMPARE(menu->objectName(), ToQt(row.name));
                QVERIFY(menu->isVisible());
                // The first item is in use already, and no submenu covers the menu.
                QCOMPARE(Current(menu), Captions(menu).first());
                QVERIFY(window->Edges().IsHeld());
                QTest::keyClick(menu, Qt::Key_Escape);
                QVERIFY(!menu->isVisible());
                QVERIFY(!window->Edges().IsHeld());
            }
            ++opened;
        }
        QCOMPARE(opened, 24);
    }

    void AMenuOpensBelowTheLinkThatHasTheFocus() {
        Window window;
        const QMenu* menu = window.Open(kUpDownLink);
        const Chip* link = window.Link(kUpDownLink);
        QCOMPARE(menu->pos(), link->mapToGlobal(link->rect().bottomLeft()));
        QApplication::activePopupWidget()->close();
    }

    void EveryItemLeadsToItsAddress() {
        Window window;
        const SiteTable sites = window.Sites();
        std::map<QString, QAction*> actions;
        for (const SiteMenu& row : SiteMenus())
            if (row.link != kNoLink)
                for (const QMenu* menu : WithSubmenus(window->Popups().Menu(ToQt(row.name))))
                    for (QAction* action : menu->actions())
                        actions[action->objectName()] = action;
        int loaded = 0;
        for (const SiteMenuItem& item : SiteMenuItems()) {
            if (item.kind == MenuItemKind::Heading)
                continue;
            const QString name =
                ToQt(item.array) + (item.index > 0 ? QString::number(item.index) : QString());
            QVERIFY2(actions.contains(name), qPrintable(name));
            window.navigations->clear();
            actions[name]->trigger();
            const QString address =
                ToQt(SiteMenuAddress(item.array, item.index, "msft", sites, window.menus));
            const bool isLoaded =
                item.kind == MenuItemKind::Fixed || item.kind == MenuItemKind::Ticker;
            QCOMPARE(!address.isEmpty(), isLoaded);
            const QStringList expected =
                isLoaded ? QStringList{u"Web: "_s + address} : QStringList();
            QCOMPARE(*window.navigations, expected);
            loaded += isLoaded;
        }
        QVERIFY(loaded > 400);
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void NoTwoItemsOfAMenuShareACaption() {
        Window window;
        for (const SiteMenu& row : SiteMenus()) {
            if (row.link == kNoLink)
                continue;
            for (const QMenu* menu : WithSubmenus(window->Popups().Menu(ToQt(row.name)))) {
                QStringList captions = Captions(menu);
                QVERIFY(!captions.isEmpty());
                QVERIFY2(captions.removeDuplicates() == 0, qPrintable(menu->title()));
            }
        }
    }

    void AMenuIsBuiltOnce() {
        Window window;
        QCOMPARE(window->Popups().Menu(u"mnuTipz"_s), window->Popups().Menu(u"mnuTipz"_s));
        QVERIFY(!window->Popups().Menu(u"mnuNone"_s));
    }

    void AllDataSendsThePeriodCodeTwenty() {
        Window window;
        QMenu* menu = window.Open(kBigLink);
        QTest::keyClicks(menu, u"all"_s);
        QCOMPARE(Current(menu), u"All Data"_s);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(*window.navigations,
                 QStringList{u"Web: h.example/quickchart/quickchart.asp?sid=&o_symb=msft&symb="
                             "msft&time=20"_s});
    }

    void ATickerMenuWithoutATickerAsksForOne() {
        Window window;
        window.Form().List1->SetListIndex(-1);
        QMenu* menu = window.Open(kBigLink);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: Select a Ticker"_s});
        QVERIFY(window.navigations->isEmpty());
    }

    void InTemplateModeATickerMenuYieldsThePlaceholder_data() {
        QTest::addColumn<int>("selected");
        QTest::newRow("no ticker") << -1;
        QTest::newRow("a ticker") << 0;
    }
    void InTemplateModeATickerMenuYieldsThePlaceholder() {
        QFETCH(int, selected);
        Window window;
        window.Form().List1->SetListIndex(selected);
        window->Recorded().templateMode = true;
        window->Popups().Choose(u"mnuHisto"_s, 5);
        QVERIFY(window.prompts.messages.isEmpty());
        QVERIFY(
            window->Recorded().multiLinkPage.contains(u"Symbol=LCASETICK+++++&Period=360++++"_s));
        window->Recorded().templateMode = false;
    }

    void ASeparatorDoesNothing() {
        Window window;
        window->Popups().Choose(u"mnuPfin"_s, 6);
        window->Popups().Choose(u"mnuPfin"_s, 99);
        window->Popups().Choose(u"mnuNone"_s, 1);
        QVERIFY(window.navigations->isEmpty());
    }

    void AmpersandsAreShown() {
        Window window;
        const QMenu* mega = window->Popups().Menu(u"mnuMegaLinks"_s);
        QVERIFY(Captions(mega).contains(u"Chats && Boards"_s));
        QVERIFY(Captions(window->Popups().Menu(u"mnuResearch"_s)).contains(u"S&&P 500"_s));
    }

    void TypingLeadsToTheNextItemThatBeginsSo() {
        Window window;
        window.Open(kMegaLink);
        SearchMenu* menu = window->Popups().Menu(u"mnuMegaLinks"_s);
        QTest::keyClicks(menu, u"m"_s);
        QCOMPARE(Current(menu), u"Market Data"_s);
        QTest::keyClicks(menu, u"m"_s);
        QCOMPARE(Current(menu), u"Mega Sites"_s);
        window.clock.now = window.clock.now.addSecs(2);
        QTest::keyClicks(menu, u"the l"_s);
        QCOMPARE(Current(menu), u"The Law"_s);
        window.clock.now = window.clock.now.addSecs(2);
        QTest::keyClicks(menu, u"x"_s);
        QCOMPARE(Current(menu), u"The Law"_s);
        // What was found heads a submenu, which only the keys for it open.
        QCOMPARE(QApplication::activePopupWidget(), menu);
        QTest::keyClick(menu, Qt::Key_Right);
        QCOMPARE(QApplication::activePopupWidget(), window->Popups().Menu(u"mnuLaws"_s));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTest::keyClick(menu, Qt::Key_Escape);
    }

    void AnItemThreeLevelsDeepIsChosenByKeyboard() {
        Window window;
        QMenu* mega = window.Open(kMegaLink);
        QTest::keyClicks(mega, u"gov"_s);
        QTest::keyClick(mega, Qt::Key_Right);
        QWidget* documents = QApplication::activePopupWidget();
        QCOMPARE(documents, window->Popups().Menu(u"mnuGovt"_s));
        QTest::keyClicks(documents, u"us"_s);
        QTest::keyClick(documents, Qt::Key_Return);
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(*window.navigations,
                 QStringList{u"Web: "_s + ToQt(window.menus.Address("mnuUTF", 0))});
    }

    void ALongMenuStaysOnTheScreenAndScrolls() {
        Window window;
        window.Open(kOnlineBrokersLink);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu->height() <= menu->screen()->availableGeometry().height());
        QTest::keyClick(menu, Qt::Key_End);
        QCOMPARE(Current(menu), Captions(menu).last());
        QVERIFY(menu->rect().contains(menu->actionGeometry(menu->activeAction()).center()));
        QTest::keyClick(menu, Qt::Key_Escape);
    }

    void ClosingASubmenuStillHoldsThePanels() {
        Window window;
        QMenu* mega = window.Open(kMegaLink);
        QTest::keyClick(mega, Qt::Key_Right);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Left);
        QCOMPARE(QApplication::activePopupWidget(), mega);
        QVERIFY(window->Edges().IsHeld());
        QTest::keyClick(mega, Qt::Key_Escape);
        QVERIFY(!window->Edges().IsHeld());
    }

    void AChoiceAfterARightPressOpensInASeparateBrowser() {
        Window window;
        const OutsideBrowser browser(window);
        window.navigations.reset();
        window.Start();
        window.navigations.emplace(window.Form());
        QTest::mouseClick(window.Link(kBigLink), Qt::RightButton);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(window->Panes().OpensNextOutside());
        QTest::keyClick(menu, Qt::Key_Return);
        QVERIFY(!window->Panes().OpensNextOutside());
        QTRY_COMPARE(browser.Opened(),
                     QByteArray("http://h.example/quickchart/quickchart.asp?sid=&o_symb=msft&symb="
                                "msft&time=1\n"));
        QVERIFY(window.navigations->isEmpty());
    }

    void ARightPressWhoseMenuIsLeftIsForgotten() {
        Window window;
        QTest::mouseClick(window.Link(kBigLink), Qt::RightButton);
        QVERIFY(window->Panes().OpensNextOutside());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTRY_VERIFY(!window->Panes().OpensNextOutside());
    }
};

TALLOWMERE_WEB_TEST_MAIN(SitePopupsTest)
#include "SitePopupsTest.moc"
