#include "app/market/WatchWindow.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmWiz.h"
#include "app/market/WatchWindows.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

// The clock of the tests stands at 10:00; the windows look at it with every tick.
class WatchWindowTest : public QObject {
    Q_OBJECT
private:
    struct Window : TestSession {
        explicit Window(const std::function<void(TestSession&)>& prepare = {}) {
            Store("First", "OK");
            Store("Stocks1", "MSFT|");
            if (prepare)
                prepare(*this);
            Start();
        }
        /// Opens a window that has loaded its page.
        frmWiz& Watch(const QString& target = u"Page|h.example/watched"_s) {
            frmWiz* form = (*this)->Watches().CreateWiz(target);
            Controller(*form).Timer1.setInterval(5);
            [[maybe_unused]] const bool loaded = Await([form] { return !form->Web->Busy(); });
            return *form;
        }
        /// How often the watched page was asked for.
        qsizetype Loads(const QString& address = u"h.example/watched"_s) const {
            return asked.count(address);
        }
        void PassSeconds(int seconds) { clock.now = clock.now.addSecs(seconds); }
    };

    static WatchWindow& Controller(const frmWiz& form) { return *form.findChild<WatchWindow*>(); }
    /// Lets two ticks go by, so that a whole one has been worked on.
    static void PassTicks(const frmWiz& form) {
        QSignalSpy ticks(&Controller(form).Timer1, &QTimer::timeout);
        QVERIFY(Await([&] { return ticks.size() >= 2; }));
    }
    static QList<frmWiz*> Open() {
        QList<frmWiz*> open;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<frmWiz*>(widget))
                open << form;
        return open;
    }
    static void TypeSeconds(const frmWiz& form, const QString& text) {
        form.txtsecs->setFocus();
        form.txtsecs->selectAll();
        if (text.isEmpty())
            QTest::keyClick(form.txtsecs, Qt::Key_Delete);
        QTest::keyClicks(form.txtsecs, text);
    }

private Q_SLOTS:
    void TheLinkWatchesThePageThatWasOpenedLast() {
        Window window;
        window.ClickLink(61);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"Quorvane: You must select a ticker symbol and a research link from "
                             "below before using this feature."_s});
        QVERIFY(Open().isEmpty());
        window.ClickLink(3);
        window.ClickLink(61);
        QCOMPARE(Open().size(), 1);
        const frmWiz* form = Open().first();
        QVERIFY(form->isVisible());
        QCOMPARE(form->windowTitle(), u"MSFT - Watch Wizard"_s);
        QCOMPARE(form->Text1->text(), u"h.example/q?s=msft&d=2b"_s);
        QCOMPARE(form->txtsecs->text(), u"60"_s);
        QVERIFY(Await([&] { return form->Web->LocationURL() == u"h.example/q?s=msft&d=2b"_s; }));
    }

    void TheControlsHaveTheirNames() {
        Window window;
        const frmWiz& form = window.Watch();
        for (const char* name : {"Text1", "txtsecs", "cmdSubmit", "Web"})
            QVERIFY2(form.findChild<QWidget*>(QString::fromLatin1(name)), name);
        QVERIFY(form.findChild<QMenu*>(u"mnuPoP"_s)->actions().contains(form.mnuExport));
        QCOMPARE(form.mnuExport->text(), u"Export to File"_s);
        QStringList texts;
        for (const QLabel* label : form.findChildren<QLabel*>())
            texts << label->text();
        QVERIFY(texts.contains(u"Refresh (Secs)"_s));
    }

    void APageIsLoadedAgainWhenItsSecondsAndOneMoreHavePassed() {
        Window window;
        const frmWiz& form = window.Watch();
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(60);
        PassTicks(form);
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(1);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
        QVERIFY(Await([&] { return !form.Web->Busy(); }));
        PassTicks(form);
        QCOMPARE(window.Loads(), 2);
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads() == 3; }));
    }

    void ChangedSecondsHoldFromTheNextWaitOn() {
        Window window;
        frmWiz& form = window.Watch();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        TypeSeconds(form, u"30"_s);
        form.Text1->setFocus();
        QCOMPARE(form.lblTimes->text(), u"Loaded 10:00:00, due again 10:01:01"_s);
        window.PassSeconds(60);
        PassTicks(form);
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(1);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
        window.PassSeconds(30);
        PassTicks(form);
        QCOMPARE(window.Loads(), 2);
        window.PassSeconds(1);
        QVERIFY(Await([&] { return window.Loads() == 3; }));
    }

    void WithoutSecondsThePageIsLoadedWithEveryTick() {
        Window window;
        const frmWiz& form = window.Watch();
        TypeSeconds(form, {});
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads() > 3; }));
    }

    void AWaitGoesOnOverMidnight() {
        Window window;
        window.clock.now = QDateTime(QDate(2026, 11, 21), QTime(23, 59, 30));
        const frmWiz& form = window.Watch();
        window.PassSeconds(45);
        PassTicks(form);
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(16);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
    }

    void AClockALittleBehindEndsTheWait() {
        Window window;
        window.Watch();
        window.PassSeconds(-3600);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
    }

    void AClockThatWasSetBackIsMeasuredAnew() {
        Window window;
        const frmWiz& form = window.Watch();
        window.PassSeconds(-3601);
        PassTicks(form);
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(60);
        PassTicks(form);
        QCOMPARE(window.Loads(), 1);
        window.PassSeconds(1);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
    }

    void TheLineSaysWhenThePageWasLoadedAndWhenItIsDue() {
        Window window;
        const frmWiz& form = window.Watch();
        QCOMPARE(form.lblTimes->text(), u"Loaded 10:00:00, due again 10:01:01"_s);
        window.PassSeconds(61);
        QVERIFY(Await(
            [&] { return form.lblTimes->text() == u"Loaded 10:01:01, due again 10:02:02"_s; }));
    }

    void TheSecondsBoxTakesDigitsAndNoLessThanThirty_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("settled");
        QTest::newRow("5") << u"5"_s << u"30"_s;
        QTest::newRow("0") << u"0"_s << u"30"_s;
        QTest::newRow("nothing") << QString() << u"30"_s;
        QTest::newRow("45") << u"45"_s << u"45"_s;
        QTest::newRow("letters among digits") << u"4x-. 5"_s << u"45"_s;
    }
    void TheSecondsBoxTakesDigitsAndNoLessThanThirty() {
        QFETCH(QString, typed);
        QFETCH(QString, settled);
        Window window;
        frmWiz& form = window.Watch();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        TypeSeconds(form, typed);
        form.Text1->setFocus();
        QCOMPARE(form.txtsecs->text(), settled);
    }

    void EnterLoadsWhatTheAddressBoxHolds() {
        Window window;
        const frmWiz& form = window.Watch();
        form.Text1->setText(u"  "_s);
        QTest::keyClick(form.Text1, Qt::Key_Return);
        QCOMPARE(form.Web->LocationURL(), u"h.example/watched"_s);
        form.Text1->setText(u"h.example/other"_s);
        QTest::keyClick(form.Text1, Qt::Key_Return);
        QVERIFY(Await([&] { return form.Web->LocationURL() == u"h.example/other"_s; }));
        form.Text1->setText(u"h.example/third"_s);
        QTest::mouseClick(form.cmdSubmit, Qt::LeftButton);
        QVERIFY(Await([&] { return form.Web->LocationURL() == u"h.example/third"_s; }));
    }

    void ItsPageIsSearchedWithTheKeysOfTheMainWindow() {
        Window window;
        frmWiz& form = window.Watch();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const auto* bar = form.findChild<QWidget*>(u"FindBar"_s);
        QVERIFY(!bar->isVisible());
        QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(bar->isVisible());
    }

    void ManyWindowsKeepTheirOwnPagesAndWaits() {
        Window window;
        const frmWiz& first = window.Watch(u"A|h.example/a"_s);
        const frmWiz& second = window.Watch(u"B|h.example/b|c"_s);
        QCOMPARE(Open().size(), 2);
        QCOMPARE(second.windowTitle(), u"B - Watch Wizard"_s);
        QCOMPARE(second.Text1->text(), u"h.example/b|c"_s);
        TypeSeconds(second, u"3600"_s);
        TypeSeconds(first, u"30"_s);
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads(u"h.example/a"_s) == 2; }));
        QCOMPARE(second.Web->LocationURL(), u"h.example/b|c"_s);
        PassTicks(second);
        // The long wait of one does not hold the others up.
        window.PassSeconds(31);
        QVERIFY(Await([&] { return window.Loads(u"h.example/a"_s) == 3; }));
        window.PassSeconds(31);
        QVERIFY(Await([&] { return window.Loads(u"h.example/a"_s) == 4; }));
        QCOMPARE(window.asked.filter(u"h.example/b"_s).size(), 2);
    }

    void AHiddenWindowGoesOn() {
        Window window;
        frmWiz& form = window.Watch();
        form.hide();
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads() == 2; }));
        form.showMinimized();
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads() == 3; }));
    }

    void AfterClosingNothingIsRefreshedAnyMore() {
        Window window;
        frmWiz& other = window.Watch(u"Other|h.example/other"_s);
        const QPointer<frmWiz> form(&window.Watch());
        form->close();
        QVERIFY(Await([&] { return !form; }));
        window.PassSeconds(61);
        QVERIFY(Await([&] { return window.Loads(u"h.example/other"_s) == 2; }));
        PassTicks(other);
        QCOMPARE(window.Loads(), 1);
    }

    void ClosingStopsTheTimerAtOnce() {
        Window window;
        frmWiz& form = window.Watch();
        form.setAttribute(Qt::WA_DeleteOnClose, false);
        const WatchWindow& watch = Controller(form);
        QVERIFY(watch.Timer1.isActive());
        form.close();
        QVERIFY(!watch.Timer1.isActive());
        form.deleteLater();
    }

    void ThePlaceIsKept() {
        Window window([](TestSession& session) {
            for (const auto& [key, value] : {std::pair{"Top", "1500"},
                                             {"Left", "3000"},
                                             {"Height", "6000"},
                                             {"Width", "7500"}})
                session.Settings().SaveSetting("frmWiz", key, value);
        });
        frmWiz& form = window.Watch();
        QCOMPARE(form.geometry().size(), QSize(500, 400));
        QCOMPARE(form.pos(), QPoint(200, 100));
        form.move(40, 20);
        form.resize(600, 300);
        form.close();
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Top", "")), u"300"_s);
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Left", "")), u"600"_s);
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Height", "")), u"4500"_s);
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Width", "")), u"9000"_s);
    }

    void FurtherWindowsCascadeAndLeaveTheStoredPlaceToTheFirst() {
        Window window([](TestSession& session) {
            for (const auto& [key, value] : {std::pair{"Top", "1500"},
                                             {"Left", "1500"},
                                             {"Height", "4500"},
                                             {"Width", "4500"}})
                session.Settings().SaveSetting("frmWiz", key, value);
        });
        frmWiz& first = window.Watch();
        QPointer<frmWiz> second = &window.Watch();
        frmWiz& third = window.Watch();
        QCOMPARE(first.pos(), QPoint(100, 100));
        QCOMPARE(second->pos(), QPoint(130, 130));
        QCOMPARE(third.pos(), QPoint(160, 160));
        QCOMPARE(third.size(), first.size());
        // What closes first does not count, but which stood in the stored place.
        second->close();
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Left", "")), u"1500"_s);
        QVERIFY(Await([&] { return !second; }));
        QCOMPARE(window.Watch().pos(), QPoint(130, 130));
        first.move(40, 20);
        first.close();
        third.close();
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Left", "")), u"600"_s);
        QCOMPARE(ToQt(window.Settings().GetSetting("frmWiz", "Top", "")), u"300"_s);
    }

    void ADamagedPlaceKeepsNoWindowFromOpening() {
        Window window([](TestSession& session) {
            session.Settings().SaveSetting("frmWiz", "Height", "tall");
        });
        QVERIFY(window.Watch().isVisible());
    }

    void TheWindowIsNeverSmallerThanItsLeastSize() {
        Window window;
        frmWiz& form = window.Watch();
        form.resize(1, 1);
        // 4400 and 1600 twips, 15 to a pixel.
        QCOMPARE(form.size(), QSize(294, 107));
    }

    void ExportWritesTheTextWithTimeAndAddress() {
        Window window;
        window.portal = [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html",
                                "<html><body><p>1 &lt; 2 &amp; more</p></body></html>"};
        };
        const frmWiz& form = window.Watch(u"MSFT|h.example/watched?a=1&b=2"_s);
        const std::filesystem::path path = window.Folder() / "saved.html";
        window.prompts.files = {PathToQt(path)};
        form.mnuExport->trigger();
        QVERIFY(Await([&] { return QFile::exists(PathToQt(path)); }));
        const QString saved = ToQt(ReadExistingFile(path));
        QCOMPARE(window.prompts.messages, QStringList{u"Export to File: MSFT.html"_s});
        QVERIFY(saved.contains(u"<title>MSFT - Watch Wizard</title>"_s));
        QVERIFY(saved.contains(u"h.example/watched?a=1&amp;b=2"_s));
        QVERIFY(saved.contains(u"2026-11-21 10:00:00"_s));
        QVERIFY(saved.contains(u"1 &lt; 2 &amp; more"_s));
    }

    void ExportWritesPdfWhenTheNameSaysSo() {
        Window window;
        const frmWiz& form = window.Watch();
        const std::filesystem::path path = window.Folder() / "saved.PDF";
        window.prompts.files = {PathToQt(path)};
        form.mnuExport->trigger();
        QVERIFY(Await([&] { return QFile::exists(PathToQt(path)); }));
        QVERIFY(ReadExistingFile(path).starts_with("%PDF-"));
    }

    void AnExportThatCannotBeWrittenIsTold() {
        Window window;
        const frmWiz& form = window.Watch();
        static_cast<Application*>(qApp)->SetPrompts(&window.prompts);
        window.prompts.files = {PathToQt(window.Folder())};
        form.mnuExport->trigger();
        QVERIFY(Await([&] { return window.prompts.messages.size() == 2; }));
        QVERIFY(window.prompts.messages[1].startsWith(u"Quorvane: "_s));
        static_cast<Application*>(qApp)->SetPrompts(nullptr);
        window.prompts.files << std::nullopt;
        form.mnuExport->trigger();
        QCOMPARE(window.prompts.messages.size(), 3);
    }

    void AllWindowsCloseWithTheMainWindow() {
        Window window;
        const QPointer<frmWiz> first(&window.Watch());
        const QPointer<frmWiz> second(&window.Watch());
        window.Form().close();
        QVERIFY(Await([&] { return !first && !second; }));
        QVERIFY(window.Settings().GetSetting("frmWiz", "Width", "none") != "none");
    }
};

TALLOWMERE_WEB_TEST_MAIN(WatchWindowTest)
#include "WatchWindowTest.moc"
