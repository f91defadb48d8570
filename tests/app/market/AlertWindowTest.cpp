#include "app/market/AlertWindow.h"

#include "app/base/DesktopNotice.h"
#include "app/market/PriceAlerts.h"
#include "core/text/files.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;
using enum AlertKind;

namespace {

/// A window in sample mode with the tickers MSFT and AOL, of which MSFT costs 430.50.
class User : public TestSession {
public:
    ListedPrice price;

    User() {
        Store("First", "OK");
        Store("Stocks1", "MSFT|AOL|");
        price.last = 430.5;
        price.percent = 0.53;
        price.origin = "Nov 20, SAMPLE DATA";
        prices = [this](const std::string& ticker) {
            return ticker == "MSFT" ? std::optional(price) : std::nullopt;
        };
        Start();
        Windows().Notice().UseBus(QDBusConnection(u"no such connection"_s));
        Alerts().Begin();
        Form().activateWindow();
    }
    ~User() { End(); }

    PriceAlerts& Alerts() { return *(*this)->Controllers().market.alerts; }
    AlertWindow& Windows() { return *(*this)->Controllers().market.alertWindow; }
    frmAlerts& Window() { return *Windows().Window(); }
    frmAlert& Editor() { return *Windows().Editor(); }
    QAction& Command(const char* name) { return *Form().menus->At(name); }
    void Set(AlertKind kind, double limit, const char* ticker) {
        Alerts().Add({0, kind, limit, ticker});
    }
    static QStringList Rows(const QTreeWidget& list) {
        QStringList rows;
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < list.columnCount(); ++column)
                cells << list.topLevelItem(row)->text(column);
            rows << cells.join(u'|');
        }
        return rows;
    }
    QStringList Rows() { return Rows(*Window().lstAlerts); }
    ItemMark Mark(int row) { return Form().List1->MarkOf(row); }
    /// Types into the editor anew.
    static void Type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
    }
};

} // namespace

class AlertWindowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AnAlertIsSetFromTheSelectedTicker() {
        User user;
        user.Form().List1->SetListIndex(0);
        QVERIFY(user.Form().menus->mnuRightTick->actions().contains(&user.Command("addAlert")));
        user.Command("addAlert").trigger();
        QVERIFY(user.Windows().Editor());
        QVERIFY(user.Editor().isModal());
        QCOMPARE(user.Editor().txtTicker->text(), u"MSFT"_s);
        QCOMPARE(user.Editor().lblPrice->text(), u"Now 430.50 (+0.53%); Nov 20, SAMPLE DATA"_s);
        QCOMPARE(user.Editor().lblWords->text(), u"Enter a price."_s);
        QVERIFY(!user.Editor().cmdOk->isEnabled());
        user.Type(user.Editor().txtLimit, u"450,5"_s);
        QCOMPARE(user.Editor().lblWords->text(), u"Tells once when MSFT is at or above 450.50."_s);
        QTest::keyClick(user.Editor().txtLimit, Qt::Key_Return);
        QCOMPARE(user.Alerts().Book().List().alerts.size(), 1U);
        user.Command("alerts").trigger();
        QCOMPARE(user.Rows(), QStringList{u"MSFT|at or above 450.50|armed|430.50 (+0.53%)"_s});
        QVERIFY(!user.Window().isModal());
    }

    void BadInputIsToldAtOnce() {
        User user;
        user.Form().List1->SetListIndex(-1);
        user.Command("addAlert").trigger();
        frmAlert& editor = user.Editor();
        QCOMPARE(editor.lblWords->text(), u"Enter a ticker."_s);
        user.Type(editor.txtTicker, u"a b"_s);
        QCOMPARE(editor.lblWords->text(), u"Enter one ticker, without blanks."_s);
        user.Type(editor.txtTicker, u"aol"_s);
        QCOMPARE(editor.lblPrice->text(), u"No price of it is known yet."_s);
        user.Type(editor.txtLimit, u"4a"_s);
        QCOMPARE(editor.lblWords->text(), u"\"4a\" is not a number."_s);
        QTest::keyClick(editor.txtLimit, Qt::Key_Return);
        QVERIFY(editor.isVisible());
        editor.cboKind->setCurrentIndex(static_cast<int>(DayChange));
        QCOMPARE(editor.txtLimit->accessibleName(), u"Percent"_s);
        user.Type(editor.txtLimit, u"5 %"_s);
        QCOMPARE(editor.lblWords->text(),
                 u"Tells once when AOL is up or down by 5% or more in a day."_s);
        QVERIFY(editor.cmdOk->isEnabled());
        QTest::keyClick(&editor, Qt::Key_Escape);
        QVERIFY(user.Alerts().Book().List().alerts.empty());
    }

    void WhatIsSoByNowIsSaidAndFires() {
        User user;
        user.Form().List1->SetListIndex(0);
        user.Command("addAlert").trigger();
        user.Type(user.Editor().txtLimit, u"400"_s);
        QCOMPARE(user.Editor().lblWords->text(),
                 u"Tells once when MSFT is at or above 400.00. That is so now."_s);
        QTest::mouseClick(user.Editor().cmdOk, Qt::LeftButton);
        // The desktop has no notices: the window opens by itself.
        QVERIFY(user.Windows().Window());
        const QString moment = u"11/21/2026 10:00:00"_s;
        QCOMPARE(user.Rows(),
                 QStringList{u"MSFT|at or above 400.00|fired at 430.50|430.50 (+0.53%)"_s});
        QCOMPARE(user.Window().lstAlerts->topLevelItem(0)->toolTip(frmAlerts::State), moment);
        QCOMPARE(User::Rows(*user.Window().lstLog),
                 QStringList{moment +
                             u"|MSFT|at or above 400.00|430.50 (+0.53%)|Nov 20, SAMPLE DATA"_s});
    }

    void ButtonsAndKeysChangeWhatIsSelected() {
        User user;
        user.Set(Above, 400, "MSFT");
        user.Set(Below, 5, "AOL");
        user.Windows().Show();
        QTreeWidget& list = *user.Window().lstAlerts;
        list.setCurrentItem(list.topLevelItem(1));
        QVERIFY(!user.Window().cmdReset->isEnabled());
        list.setCurrentItem(list.topLevelItem(0));
        QVERIFY(user.Window().cmdReset->isEnabled());
        QTest::mouseClick(user.Window().cmdReset, Qt::LeftButton);
        QCOMPARE(user.Rows().first(), u"MSFT|at or above 400.00|armed|430.50 (+0.53%)"_s);
        QCOMPARE(list.indexOfTopLevelItem(list.currentItem()), 0);
        QVERIFY(!user.Window().cmdReset->isEnabled());
        QTest::mouseClick(user.Window().cmdEdit, Qt::LeftButton);
        QCOMPARE(user.Editor().txtLimit->text(), u"400.00"_s);
        user.Type(user.Editor().txtLimit, u"1,234.5"_s);
        QTest::keyClick(user.Editor().txtLimit, Qt::Key_Return);
        QCOMPARE(user.Rows().first(), u"MSFT|at or above 1,234.50|armed|430.50 (+0.53%)"_s);
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(user.Rows(), QStringList{u"AOL|at or below 5.00|armed|not known"_s});
        user.Command("undo").trigger();
        QCOMPARE(user.Rows().size(), 2);
        while (list.topLevelItemCount() > 0)
            QTest::mouseClick(user.Window().cmdRemove, Qt::LeftButton);
        QVERIFY(!user.Window().cmdEdit->isEnabled());
        QVERIFY(!user.Window().cmdRemove->isEnabled());
    }

    void TheListMarksTickersWithAnAlert() {
        User user;
        QCOMPARE(user.Mark(0).sign, QString());
        user.Set(Above, 450, "MSFT");
        QCOMPARE(user.Mark(0).sign, u"\u2690"_s);
        QVERIFY(user.Mark(0).meaning.endsWith(u"alert at or above 450.00"_s));
        QCOMPARE(user.Mark(0).hint, u"MSFT: alert at or above 450.00"_s);
        QCOMPARE(user.Mark(1).sign, QString());
        user.price.last = 451;
        user.Alerts().Look();
        QCOMPARE(user.Mark(0).sign, u"\u2691"_s);
        QVERIFY(user.Mark(0).meaning.endsWith(u"alert fired at 451.00"_s));
        user.Alerts().Remove(user.Alerts().Book().List().alerts.at(0).id);
        QCOMPARE(user.Mark(0).sign, QString());
    }

    void SeveralThatFireAreToldTogether() {
        User user;
        user.Set(Above, 440, "MSFT");
        user.Set(Above, 441, "MSFT");
        user.price.last = 445;
        user.Alerts().Look();
        QCOMPARE(user.Form().WebStatus->text(),
                 u"MSFT is at 445.00: at or above 441.00 (and 1 more)"_s);
    }

    void AClickOnTheNoticeOpensTheWindow() {
        User user;
        Q_EMIT user.Windows().Notice().Clicked();
        QVERIFY(user.Windows().Window());
        QVERIFY(user.Window().isVisible());
    }

    void AWindowThatWaitsForAnAnswerIsNotCovered() {
        User user;
        QDialog box(&user.Form());
        box.setModal(true);
        box.show();
        user.Set(Above, 400, "MSFT");
        QVERIFY(!user.Windows().Window());
        Q_EMIT user.Windows().Notice().Clicked();
        QVERIFY(!user.Windows().Window());
    }

    void NamesThatLookLikeMarkupAreShownAsTheyAre() {
        User user;
        user.Set(Above, 400, "<B>X</B>");
        user.Windows().Show();
        QVERIFY(user.Rows().first().startsWith(u"<B>X</B>|"_s));
    }

    void WithoutAMarketTheWindowSaysSo() {
        TestSession session(u"127.0.0.1:1"_s, WebMode::Direct);
        session.Store("First", "OK");
        session.Start();
        AlertWindow& windows = *session->Controllers().market.alertWindow;
        windows.Show();
        QVERIFY(windows.Window()->lblMessage->text().contains(u"no alert is checked"_s));
    }
};

TALLOWMERE_WEB_TEST_MAIN(AlertWindowTest)
#include "AlertWindowTest.moc"
