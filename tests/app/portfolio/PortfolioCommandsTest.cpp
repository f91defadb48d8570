#include "app/portfolio/Portfolios.h"
#include "support/FullDisk.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QClipboard>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class PortfolioCommandsTest : public QObject {
    Q_OBJECT
private:
    /// A profile with three tickers in portfolio 1, of which the second is selected.
    static void Fill(TestSession& session) {
        session.Store("First", "OK");
        session.Store("Stocks1", "AOL|IBM|MSFT|");
        session.Store("Stocks4", "IBM|");
        session.Start();
        session.Form().List1->SetListIndex(1);
    }
    static QAction* Item(TestSession& session, const char* name) {
        return session.Form().findChild<QAction*>(QString::fromLatin1(name));
    }
    static void Run(TestSession& session, const char* name) { Item(session, name)->trigger(); }
    static QString Clipboard() { return QGuiApplication::clipboard()->text(); }

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->setText(u"before"_s); }

    void AllPortfoliosGoToTheClipboardUnderTheirNumbers() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks2", "IBM|MSFT|");
        session.Store("PortName2", "Tech");
        session.Store("Stocks5", "AOL|");
        session.Start();
        Run(session, "mnuCopyAll");
        QCOMPARE(Clipboard(), u"Portfolio #2\r\nIBM, MSFT\r\n\r\nPortfolio #5\r\nAOL\r\n\r\n"_s);
    }

    void TheCurrentPortfolioGoesToTheClipboard() {
        TestSession session;
        Fill(session);
        Run(session, "mnuCopyIt");
        QCOMPARE(Clipboard(), u"AOL, IBM, MSFT"_s);
    }

    void AnEmptyPortfolioLeavesTheClipboardAlone() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        Q_EMIT session.Form().menus->portfolioMenu->aboutToShow();
        QVERIFY(!Item(session, "mnuCopyIt")->isEnabled());
        Item(session, "mnuCopyIt")->setEnabled(true);
        Run(session, "mnuCopyIt");
        QCOMPARE(Clipboard(), u"before"_s);
    }

    void ADamagedListIsReportedAndLeavesTheClipboardAlone() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        session.Store("Stocks1", "X");
        auto& application = static_cast<Application&>(*qApp);
        application.SetPrompts(&session.prompts);
        QTimer::singleShot(0, Item(session, "mnuCopyIt"), &QAction::trigger);
        QTRY_COMPARE(session.prompts.messages.size(), 1);
        application.SetPrompts(nullptr);
        QVERIFY(session.prompts.messages.first().startsWith(u"Quorvane: "_s));
        QCOMPARE(Clipboard(), u"before"_s);
    }

    void ACopiedTickerStandsAtTheEndOfTheTargetAndStays() {
        TestSession session;
        Fill(session);
        Run(session, "mnuCopyPort4");
        Run(session, "mnuCopyPort4");
        QCOMPARE(session.Stored("Stocks4"), u"IBM|IBM|IBM|"_s);
        QCOMPARE(session.Stored("Stocks1"), u"AOL|IBM|MSFT|"_s);
        QCOMPARE(session.Form().List1->Count(), 3);
    }

    void AMovedTickerLeavesTheListAtOnce() {
        TestSession session;
        Fill(session);
        Run(session, "mnuMovePort10");
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"AOL"_s, u"MSFT"_s}));
        QCOMPARE(session.Stored("Stocks1"), u"AOL|MSFT|"_s);
        QCOMPARE(session.Stored("Stocks10"), u"IBM|"_s);
        QTest::mouseClick(session.Form().lblListNum[10], Qt::LeftButton);
        QCOMPARE(session.Form().List1->Items(), QStringList{u"IBM"_s});
    }

    void ATickerIsNotLostOnItsWayToAnotherPortfolio() {
        for (const char* command : {"mnuMovePort10", "mnuMoveAllPort10"}) {
            TestSession session;
            Fill(session);
            auto& application = static_cast<Application&>(*qApp);
            application.SetPrompts(&session.prompts);
            {
                // There is room for the list without the ticker, none for the other list.
                const FullDisk disk(std::filesystem::file_size(session.Folder() / "settings.ini"));
                QTimer::singleShot(0, Item(session, command), &QAction::trigger);
                QTRY_COMPARE(session.prompts.messages.size(), 1);
            }
            application.SetPrompts(nullptr);
            QCOMPARE(session.Stored("Stocks1"), u"AOL|IBM|MSFT|"_s);
            QCOMPARE(session.Stored("Stocks10"), u"<absent>"_s);
            QCOMPARE(session.Form().List1->Count(), 3);
        }
    }

    void TheOnlyTickerMovedLeavesAnEmptyPortfolio() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "IBM|");
        session.Start();
        Run(session, "mnuMovePort2");
        QCOMPARE(session.Stored("Stocks1"), QString());
        QCOMPARE(session.Form().List1->Count(), 0);
        QCOMPARE(session.Stored("Stocks2"), u"IBM|"_s);
    }

    void MovingNothingAppendsAnEmptyTicker() {
        TestSession session;
        Fill(session);
        session.Form().List1->SetListIndex(-1);
        Run(session, "mnuMovePort4");
        QCOMPARE(session.Stored("Stocks4"), u"IBM||"_s);
        QCOMPARE(session.Stored("Stocks1"), u"AOL|IBM|MSFT|"_s);
        QCOMPARE(session.Form().List1->Count(), 3);
    }

    void ACopiedPortfolioKeepsBothCopiesOfATicker() {
        TestSession session;
        Fill(session);
        Run(session, "mnuCopyAllPort4");
        QCOMPARE(session.Stored("Stocks4"), u"IBM|AOL|IBM|MSFT|"_s);
        QCOMPARE(session.Stored("Stocks1"), u"AOL|IBM|MSFT|"_s);
    }

    void AMovedPortfolioLeavesItsListEmpty() {
        TestSession session;
        Fill(session);
        Run(session, "mnuMoveAllPort4");
        QCOMPARE(session.Stored("Stocks4"), u"IBM|AOL|IBM|MSFT|"_s);
        QCOMPARE(session.Stored("Stocks1"), QString());
        QCOMPARE(session.Form().List1->Count(), 0);
        // Nothing comes back when the portfolio is left and shown again.
        QTest::mouseClick(session.Form().lblListNum[4], Qt::LeftButton);
        QTest::mouseClick(session.Form().lblListNum[1], Qt::LeftButton);
        QCOMPARE(session.Form().List1->Count(), 0);
    }

    void APortfolioMovedOntoItselfKeepsItsStoredList() {
        TestSession session;
        Fill(session);
        Run(session, "mnuMoveAllPort1");
        QCOMPARE(session.Stored("Stocks1"), u"AOL|IBM|MSFT|"_s);
        QCOMPARE(session.Form().List1->Count(), 0);
    }

    void ThePopupKeepsTheCurrentPortfolioOutOfTheTargets() {
        TestSession session;
        Fill(session);
        QTest::mouseClick(session.Form().lblListNum[4], Qt::LeftButton);
        Q_EMIT session.Form().menus->portfolioMenu->aboutToShow();
        for (const char* array :
             {"mnuMovePort", "mnuCopyPort", "mnuMoveAllPort", "mnuCopyAllPort"}) {
            for (int n = 1; n <= 10; ++n) {
                const QString name = QString::fromLatin1(array) + QString::number(n);
                QCOMPARE(session.Form().findChild<QAction*>(name)->isEnabled(), n != 4);
            }
        }
    }

    void ARenamedPortfolioBearsItsNameEverywhere() {
        TestSession session;
        Fill(session);
        session.prompts.inputs = {u" Tech "_s};
        Run(session, "mnuPortOpt1");
        QCOMPARE(session.prompts.messages,
                 QStringList{u"Rename Portfolio: Enter a new name for portfolio #1"_s});
        QCOMPARE(session.prompts.presets, QStringList{QString()});
        QCOMPARE(session.Stored("PortName1"), u" Tech "_s);
        QCOMPARE(session.Form().lblPort->Caption(), u" Tech "_s);
        QCOMPARE(session.Form().lblListNum[1]->toolTip(), u" Tech "_s);
        QCOMPARE(Item(session, "mnuCopyPort1")->text(), u" Tech "_s);
    }

    void ABlankNameOrCancelRenamesNothing() {
        TestSession session;
        Fill(session);
        session.prompts.inputs = {u"   "_s, QString(), std::nullopt};
        for (int i = 0; i < 3; ++i)
            Run(session, "mnuPortOpt1");
        QCOMPARE(session.prompts.messages.size(), 3);
        QCOMPARE(session.Stored("PortName1"), u"<absent>"_s);
        QCOMPARE(session.Form().lblPort->Caption(), u"Portfolio #1"_s);
    }

    void TheLabelSwitchHidesTheCaptionAndMakesRoom() {
        TestSession session;
        Fill(session);
        frmMain& form = session.Form();
        const int top = form.txtStock->y();
        QVERIFY(!form.lblPort->isHidden());
        Run(session, "mnuPortOpt3");
        QCOMPARE(session.Stored("PortLabels"), u"False"_s);
        QVERIFY(form.lblPort->isHidden());
        QVERIFY(!Item(session, "mnuPortOpt3")->isChecked());
        QVERIFY(form.txtStock->y() < top);
        Run(session, "mnuPortOpt3");
        QCOMPARE(session.Stored("PortLabels"), u"True"_s);
        QVERIFY(!form.lblPort->isHidden());
        QVERIFY(Item(session, "mnuPortOpt3")->isChecked());
        QCOMPARE(form.txtStock->y(), top);
    }

    void TheRightButtonOrTheMenuKeyOpensTheOptions() {
        TestSession session;
        Fill(session);
        QMenu* options = session.Form().menus->mnuPortOptions;
        for (Chip* label : {session.Form().lblListNum[7], session.Form().lblPort}) {
            QTest::mousePress(label, Qt::RightButton);
            QVERIFY(!options->isVisible());
            QTest::mouseRelease(label, Qt::RightButton);
            QVERIFY(options->isVisible());
            options->close();
            label->setFocus();
            QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(label, &key);
            QVERIFY(options->isVisible());
            options->close();
        }
        // The right button selects nothing: the menu says which portfolio it is about.
        QCOMPARE(options->actions().first()->text(), u"#1: "_s + session.Form().lblPort->Caption());
        QVERIFY(!options->actions().first()->isEnabled());
        QCOMPARE(session->Ports().Current(), 1);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PortfolioCommandsTest)
#include "PortfolioCommandsTest.moc"
