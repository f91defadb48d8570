#include "app/links/SmartNavigate.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmNav.h"
#include "support/ModalDialog.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLineEdit>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class SmartNavigateTest : public QObject {
    Q_OBJECT
private:
    static constexpr int kNavigateLink = 80;

    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Start();
            navigations.emplace(Form());
        }
        std::optional<Navigations> navigations;

        void Use(const std::function<void(frmNav&)>& use) {
            WithDialog<frmNav>([this] { ClickLink(kNavigateLink); }, use);
        }
        /// Types an entry into the dialog and presses Enter.
        void Type(const QString& text) {
            Use([&](frmNav& dialog) {
                QTest::keyClicks(dialog.Combo1, text);
                QTest::keyClick(dialog.Combo1, Qt::Key_Return);
            });
        }
        QStringList Remembered() {
            QStringList entries;
            for (int i = 1; Stored(qPrintable(u"NAV"_s + QString::number(i))) != u"<absent>"_s; ++i)
                entries << Stored(qPrintable(u"NAV"_s + QString::number(i)));
            return entries;
        }
    };

private Q_SLOTS:
    void AnEntryIsCompletedRememberedAndOpened_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("address");
        QTest::newRow("a name") << u"Zacks"_s << u"www.Zacks.com"_s;
        QTest::newRow("a name between blanks") << u"  msft "_s << u"www.msft.com"_s;
        QTest::newRow("a name with a blank") << u"a b"_s << u"www.a b.com"_s;
        QTest::newRow("an address") << u"http://www.x.org/a?b=1"_s << u"http://www.x.org/a?b=1"_s;
        QTest::newRow("a number") << u"10.0.0.1"_s << u"10.0.0.1"_s;
    }

    void AnEntryIsCompletedRememberedAndOpened() {
        QFETCH(QString, typed);
        QFETCH(QString, address);
        Window window;
        window.Type(typed);
        QCOMPARE(*window.navigations, QStringList{u"Web: "_s + address});
        QCOMPARE(window.Remembered(), QStringList{address});
    }

    void OfANameThatNoSiteCanHaveThePaneSaysWhatIsWrong() {
        TestSession window({}, WebMode::Direct);
        window.Store("First", "OK");
        window.Store("DefaultWeb", "Aabout:blank");
        window.Start();
        WithDialog<frmNav>([&] { window.ClickLink(kNavigateLink); },
                           [](frmNav& dialog) {
                               QTest::keyClicks(dialog.Combo1, u"a b"_s);
                               QTest::keyClick(dialog.Combo1, Qt::Key_Return);
                           });
        const auto text = [&](const QString& label) {
            const auto* shown = window.Form().Web->findChild<QLabel*>(label);
            return shown && !shown->isHidden() ? shown->text() : QString();
        };
        QCOMPARE(text(u"NoticeText"_s), u"No site can have this name."_s);
        QCOMPARE(text(u"NoticeAddress"_s), u"www.a b.com"_s);
        QCOMPARE(window.Stored("NAV1"), u"www.a b.com"_s);
    }

    void BlanksOnlyCloseTheDialogWithoutSaving() {
        Window window;
        window.Type(u"   "_s);
        QVERIFY(window.navigations->isEmpty());
        QVERIFY(window.Remembered().isEmpty());
    }

    void EscapeDoesNothing() {
        Window window;
        window.Use([](frmNav& dialog) {
            QTest::keyClicks(dialog.Combo1, u"zacks"_s);
            QTest::keyClick(dialog.Combo1, Qt::Key_Escape);
        });
        QVERIFY(window.navigations->isEmpty());
        QVERIFY(window.Remembered().isEmpty());
    }

    void TheNewestEntryStandsBeforeTheOlderOnesAndARepeatedOneTwice() {
        Window window;
        window.Type(u"a.b"_s);
        window.Type(u"c.d"_s);
        window.Type(u"a.b"_s);
        QCOMPARE(window.Remembered(), (QStringList{u"a.b"_s, u"c.d"_s, u"a.b"_s}));
        window.Use([](frmNav& dialog) {
            QCOMPARE(dialog.Combo1->count(), 3);
            QCOMPARE(dialog.Combo1->itemText(0), u"a.b"_s);
            QCOMPARE(dialog.Combo1->itemText(1), u"c.d"_s);
            QVERIFY(dialog.Combo1->currentText().isEmpty());
        });
    }

    void TheFirstDownGivesTheNewestEntryAndTheNextTheOneBeforeIt() {
        Window window;
        window.Store("NAV1", "new.est");
        window.Store("NAV2", "old.er");
        window.Use([](frmNav& dialog) {
            QTest::keyClick(dialog.Combo1, Qt::Key_Down);
            QCOMPARE(dialog.Combo1->currentText(), u"new.est"_s);
            QTest::keyClick(dialog.Combo1, Qt::Key_Down);
            QCOMPARE(dialog.Combo1->currentText(), u"old.er"_s);
            QTest::keyClick(dialog.Combo1, Qt::Key_Up);
            QTest::keyClick(dialog.Combo1, Qt::Key_Return);
        });
        QCOMPARE(*window.navigations, QStringList{u"Web: new.est"_s});
    }

    void TheListEndsAtTheFirstEmptyKey() {
        Window window;
        window.Store("NAV1", "a.b");
        window.Store("NAV3", "c.d");
        window.Use([](frmNav& dialog) { QCOMPARE(dialog.Combo1->count(), 1); });
    }

    void TheButtonOpensTheChosenEntry() {
        Window window;
        window.Store("NAV1", "a.b");
        window.Store("NAV2", "c.d");
        window.Use([](frmNav& dialog) {
            dialog.Combo1->setCurrentIndex(1);
            QTest::mouseClick(dialog.Command1, Qt::LeftButton);
        });
        QCOMPARE(*window.navigations, QStringList{u"Web: c.d"_s});
    }

    void WhatIsTypedStaysAsTypedThoughEarlierEntriesBeginAlike() {
        Window window;
        window.Store("NAV1", "www.x.org/deep/page");
        window.Type(u"www.x.org"_s);
        QCOMPARE(*window.navigations, QStringList{u"Web: www.x.org"_s});
    }

    void EntriesThatNobodyTypedDoNoHarm() {
        Window window;
        window.Store("NAV1", (std::string("www.") + std::string(1000000, 'x') + ".org").c_str());
        window.Store("NAV2", "a.b\r\n\x07\x1b[0mc");
        window.Store("NAV3", "javascript:alert(1).x");
        window.Use([](frmNav& dialog) {
            QCOMPARE(dialog.Combo1->count(), 3);
            QVERIFY2(dialog.width() < 1500, qPrintable(QString::number(dialog.width())));
            dialog.Combo1->setCurrentIndex(2);
            QTest::mouseClick(dialog.Command1, Qt::LeftButton);
        });
        QCOMPARE(*window.navigations, QStringList{u"Web: javascript:alert(1).x"_s});
        // What is no page of the web is not loaded; the pane says so.
        window.navigations.reset();
        window.Form().Web->Navigate(u"javascript:alert(1).x"_s);
        QVERIFY(!window.Form().Web->Busy());
        QVERIFY(!window.Form().Web->findChild<QFrame*>(u"PaneNotice"_s)->isHidden());
    }

    void ABrokersPageMakesWayForTheMainPane() {
        Window window;
        window.Form().WebB->show();
        window.Form().Web->hide();
        window.Type(u"zacks"_s);
        QVERIFY(!window.Form().Web->isHidden());
        QVERIFY(window.Form().WebB->isHidden());
    }

    void TheDialogHasItsTitleAndReadableControls() {
        Window window;
        window.Use([](frmNav& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Smart Navigate - Enter a URL or Site Name"_s);
            QVERIFY(dialog.Command1->isDefault());
            QVERIFY(!dialog.Combo1->accessibleName().isEmpty());
        });
    }
};

TALLOWMERE_WEB_TEST_MAIN(SmartNavigateTest)
#include "SmartNavigateTest.moc"
