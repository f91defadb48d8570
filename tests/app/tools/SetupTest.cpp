#include "app/engine/BrowserPane.h"
#include "app/forms/frmColor.h"
#include "app/forms/frmUser.h"
#include "app/links/LinkDispatch.h"
#include "app/market/TickerStrip.h"
#include "core/text/files.h"
#include "support/ModalDialog.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class SetupTest : public QObject {
    Q_OBJECT
private:
    static constexpr int kSetupLink = 66;

    struct Window : TestSession {
        Window() { Store("First", "OK"); }
        void Open() {
            Start();
            navigations.emplace(Form());
        }
        std::optional<Navigations> navigations;

        void Use(const std::function<void(frmUser&)>& use) {
            WithDialog<frmUser>([this] { ClickLink(kSetupLink); }, use);
        }
        /// Opens the dialog and clicks a button of it.
        void Click(std::size_t button) {
            Use([=](frmUser& dialog) {
                QTest::mouseClick(dialog.cmdOK[button], Qt::LeftButton);
                QVERIFY2(!dialog.isVisible(), "every button closes the dialog");
            });
        }
        void RestartSession() {
            navigations.reset();
            Open();
        }
    };

private Q_SLOTS:
    void TheDialogSaysWhatItIsToSay() {
        Window window;
        window.Open();
        window.Use([](frmUser& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Browser Setup & Help"_s);
            QCOMPARE(dialog.chkFire->text(), u"Firewall / AOL"_s);
            QCOMPARE(dialog.chkTick->text(), u"Ticker"_s);
            QCOMPARE(dialog.chkToolTips->text(), u"Tool Tips"_s);
            QCOMPARE(dialog.chkActive->text(), u"Active Edges"_s);
            QCOMPARE(dialog.chkSA->text(), u"Societe Anonyme Member"_s);
            QCOMPARE(dialog.cmdOK[0]->text(), u"&OK"_s);
            QCOMPARE(dialog.cmdOK[1]->text(), u"Set &Colors"_s);
            QCOMPARE(dialog.cmdOK[2]->text(), u"&Help"_s);
            QCOMPARE(dialog.cmdOK[4]->text(), u"&Purge Ticker Notes"_s);
            QCOMPARE(dialog.cmdOK[5]->text(), u"&Set Startup Page"_s);
            QCOMPARE(
                dialog.Label5->text(),
                u"Click here to report any problems, concerns, suggestions or invalid links."_s);
            QCOMPARE(dialog.lblNotice->text(),
                     u"All data displayed originates from the respective website.  You are "
                     "responsible for any investment decisions you make based on web pages viewed "
                     "with this program.  All data is the property of the respective website and "
                     "shall not be used outside of the limits imposed by that web sites policies. "
                     "If you find a link or feature that no-longer works, please let us know so "
                     "that it can be fixed or replaced."_s);
            QVERIFY(dialog.cmdOK[0]->isDefault());
            QVERIFY(!dialog.chkSA->isVisible());
            QCOMPARE(dialog.txtMNPwd->echoMode(), QLineEdit::Password);
            for (const QWidget* control : dialog.findChildren<QWidget*>())
                QVERIFY2(!control->objectName().startsWith(u"txt"_s) ||
                             !control->accessibleName().isEmpty(),
                         qPrintable(control->objectName()));
        });
    }

    void TheControlsShowWhatIsStored() {
        Window window;
        window.Store("MNL", "me");
        window.Store("MNP", " secret ");
        window.Store("Firewall", "proxy:8080");
        window.Store("PROXY", "1");
        window.Store("Tips", "False");
        window.Store("SAVersion", "True");
        window.Store("WSCTick", "True");
        window.Store("ActiveEdge", "True");
        window.Open();
        window.Use([](frmUser& dialog) {
            QCOMPARE(dialog.txtMNLogin->text(), u"me"_s);
            QCOMPARE(dialog.txtMNPwd->text(), u" secret "_s);
            QCOMPARE(dialog.txtFire->text(), u"proxy:8080"_s);
            QVERIFY(dialog.chkFire->isChecked());
            QVERIFY(!dialog.chkToolTips->isChecked());
            QVERIFY(dialog.chkSA->isChecked());
            QVERIFY(dialog.chkTick->isChecked());
            QVERIFY(dialog.chkActive->isChecked());
        });
    }

    void TheTextsAreSavedWhenTheDialogClosesHoweverItCloses() {
        Window window;
        window.Open();
        window.Use([&](frmUser& dialog) {
            QTest::keyClicks(dialog.txtFire, u"  10.0.0.1:80 "_s);
            QTest::keyClicks(dialog.txtMNLogin, u" me"_s);
            QTest::keyClicks(dialog.txtMNPwd, u"s3cret "_s);
            dialog.chkFire->click();
            QCOMPARE(window.Stored("MNL"), u"<absent>"_s);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QCOMPARE(window.Stored("Firewall"), u"10.0.0.1:80"_s);
        QCOMPARE(window.Stored("PROXY"), u"1"_s);
        QCOMPARE(window.Stored("MNL"), u" me"_s);
        QCOMPARE(window.Stored("MNP"), u"s3cret "_s);
        QCOMPARE(window.Stored("SAVersion"), u"False"_s);
        window.Use([](frmUser& dialog) {
            QCOMPARE(dialog.txtMNLogin->text(), u" me"_s);
            dialog.chkFire->click();
        });
        QCOMPARE(window.Stored("PROXY"), u"0"_s);
    }

    void ALoginWorksAtOnce() {
        Window window;
        window.Open();
        window.Use([](frmUser& dialog) { dialog.txtMNLogin->setText(u"me"_s); });
        QCOMPARE(window->UserAccounts().streamLogin, u"me"_s);
    }

    void TickerShowsTheStripAtOnce() {
        Window window;
        window.Open();
        window.Use([&](frmUser& dialog) {
            QTest::mouseClick(dialog.chkTick, Qt::LeftButton, {},
                              {8, dialog.chkTick->height() / 2});
            QVERIFY(!window.Form().fraTick->isHidden());
            QCOMPARE(*window.navigations, QStringList{u"WebTick: h.example/javaticker.html"_s});
            QCOMPARE(window.Stored("WSCTick"), u"True"_s);
        });
        window.RestartSession();
        QVERIFY(!window.Form().fraTick->isHidden());
    }

    void UncheckingTickerStopsTheStripAtOnceAndSurvivesARestart() {
        Window window;
        window.Store("WSCTick", "True");
        window.Start();
        QVERIFY(window.Form().WebTick->Busy());
        window.navigations.emplace(window.Form());
        window.Use([&](frmUser& dialog) {
            dialog.chkTick->click();
            QVERIFY(window.Form().fraTick->isHidden());
            QVERIFY(!window.Form().WebTick->Busy());
            QCOMPARE(window.Stored("WSCTick"), u"False"_s);
        });
        window.RestartSession();
        QVERIFY(window.Form().fraTick->isHidden());
        QVERIFY(!window->Ticker().IsShown());
    }

    void ToolTipsAreSwitchedAtOnce() {
        Window window;
        window.Open();
        QVERIFY(!window.Link(3)->toolTip().isEmpty());
        window.Use([&](frmUser& dialog) {
            dialog.chkToolTips->click();
            QVERIFY(window.Link(3)->toolTip().isEmpty());
            QCOMPARE(window.Stored("Tips"), u"False"_s);
            QVERIFY(!window->Form().ShowsToolTips());
        });
    }

    void WithoutToolTipsTheTickerListShowsNoneToo() {
        Window window;
        window.Open();
        ListBox* list = window.Form().List1;
        list->setToolTip(u"Ticker List"_s);
        const auto rest = [&] {
            const QPoint point = list->rect().center();
            QHelpEvent event(QEvent::ToolTip, point, list->mapToGlobal(point));
            QApplication::sendEvent(list, &event);
            return QToolTip::text();
        };
        QCOMPARE(rest(), u"Ticker List"_s);
        QToolTip::hideText();
        QTRY_VERIFY(QToolTip::text().isEmpty());
        window.Use([](frmUser& dialog) { dialog.chkToolTips->click(); });
        QCOMPARE(rest(), QString());
    }

    void ActiveEdgesAreSwitchedAtOnce() {
        Window window;
        window.Open();
        window.Use([&](frmUser& dialog) {
            dialog.chkActive->click();
            QCOMPARE(window.Stored("ActiveEdge"), u"True"_s);
            QVERIFY(window.Form().fraLeft->isHidden());
            QVERIFY(window.Form().fraRight->isHidden());
            dialog.chkActive->click();
            QCOMPARE(window.Stored("ActiveEdge"), u"False"_s);
            QVERIFY(!window.Form().fraLeft->isHidden());
            QVERIFY(!window.Form().fraRight->isHidden());
        });
    }

    void ASecondRightClickOnHelpTogglesTheMemberBoxWithOneMessage() {
        Window window;
        window.Open();
        window.Use([&](frmUser& dialog) {
            const auto rightClick = [&] { QTest::mouseClick(dialog.cmdOK[2], Qt::RightButton); };
            rightClick();
            QVERIFY(!dialog.chkSA->isVisible());
            QVERIFY(window.prompts.messages.isEmpty());
            rightClick();
            QVERIFY(dialog.chkSA->isVisible());
            QCOMPARE(window.prompts.messages,
                     QStringList{u"Quorvane: SA mode set to ON.. Double right click the Help "
                                 "Button to turn it OFF."_s});
            rightClick();
            QVERIFY(dialog.chkSA->isVisible());
            rightClick();
            QVERIFY(!dialog.chkSA->isVisible());
            QCOMPARE(window.prompts.messages.size(), 2);
            QCOMPARE(window.prompts.messages[1],
                     u"Quorvane: SA mode set to OFF.. Double right click the Help Button to turn "
                     "it ON."_s);
            QVERIFY(dialog.isVisible());
        });
    }

    void ASingleRightClickIsForgottenWhenTheDialogCloses() {
        Window window;
        window.Open();
        for (int round = 0; round < 2; ++round)
            window.Use([](frmUser& dialog) {
                QTest::mouseClick(dialog.cmdOK[2], Qt::RightButton);
                QVERIFY(!dialog.chkSA->isVisible());
            });
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void TheMemberBoxIsSavedWhenTheDialogCloses() {
        Window window;
        window.Open();
        window.Use([](frmUser& dialog) {
            dialog.chkSA->show();
            dialog.chkSA->click();
        });
        QCOMPARE(window.Stored("SAVersion"), u"True"_s);
        window.Use([](frmUser& dialog) { QVERIFY(dialog.chkSA->isChecked()); });
    }

    void PurgeEmptiesTheTickerNotesWithoutAQuestion() {
        Window window;
        window.Open();
        WriteWholeFile(window.Folder() / "TickNotes.txt", "||MSFT||note|||||\r\n");
        window.Click(4);
        QVERIFY(!std::filesystem::exists(window.Folder() / "TickNotes.txt"));
        window.Click(4); // a missing file is no error
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void SetColorsShowsTheColourDialogAndThenClosesBoth() {
        Window window;
        window.Open();
        window.prompts.colors = {QColor(0, 0, 255)};
        window.Use([](frmUser& dialog) {
            WithDialog<frmColor>([&] { QTest::mouseClick(dialog.cmdOK[1], Qt::LeftButton); },
                                 [](frmColor& colors) {
                                     colors.List1->SetListIndex(6);
                                     Q_EMIT colors.List1->Clicked();
                                     QTest::mouseClick(colors.cmdFore[1], Qt::LeftButton);
                                     QTest::mouseClick(colors.cmdOK, Qt::LeftButton);
                                 });
            QVERIFY(!dialog.isVisible());
        });
        QCOMPARE(window.Link(3)->Colors().background, 0xFF0000U);
    }

    void ACustomLinkWithATitleKeepsItsOwnColoursAndAnUnusedOneTakesThoseOfTheArea() {
        Window window;
        window.Store("CustomT101", "Mine");
        window.Store("CustomF101", "65535");
        window.Store("CustomB101", "255");
        window.Store("CustomB102", "65280");
        window.Open();
        QCOMPARE(window.Link(102)->Colors().background, 65280U);
        window.Settings().SaveSetting("Colors", "bCUST", "16711680");
        window.Click(0);
        QCOMPARE(window.Link(101)->Colors(), (ColorPair{65535, 255}));
        QCOMPARE(window.Link(102)->Colors(), (ColorPair{kSystemWindowText, 0xFF0000}));
        QCOMPARE(window.Link(103)->Colors(), (ColorPair{kSystemWindowText, 0xFF0000}));
    }

    void ThePasswordLiesInAFileThatOnlyItsOwnerCanRead() {
        Window window;
        window.Open();
        window.Use([](frmUser& dialog) { dialog.txtMNPwd->setText(u"s3cret"_s); });
        QCOMPARE(window.Stored("MNP"), u"s3cret"_s);
        const auto rights = std::filesystem::status(window.Folder() / "settings.ini").permissions();
        QVERIFY((rights & (std::filesystem::perms::group_all |
                           std::filesystem::perms::others_all)) == std::filesystem::perms::none);
    }

    void HelpOpensTheGuideInTheMainPane() {
        Window window;
        window.Open();
        window.Click(2);
        QCOMPARE(*window.navigations, QStringList{u"Web: portal://help/index.html"_s});
        window.navigations->clear();
        window.Form().menus->help->trigger();
        QCOMPARE(*window.navigations, QStringList{u"Web: portal://help/index.html"_s});
    }

    void EscapeAfterAnEarlierHelpOpensNothing() {
        Window window;
        window.Open();
        window.Click(2);
        window.navigations->clear();
        window.Use([](frmUser&) {});
        QVERIFY(window.navigations->isEmpty());
    }

    void TheStartPageIsThatOfTheVisiblePane() {
        Window window;
        window.Start();
        frmMain& form = window.Form();
        form.Web->Navigate(u"h.example/first"_s);
        QTRY_COMPARE(form.Web->LocationURL(), u"h.example/first"_s);
        window.Click(5);
        QCOMPARE(window.Stored("DefaultWeb"), u"Ah.example/first"_s);
        form.WebB->Navigate(u"h.example/broker"_s);
        QTRY_COMPARE(form.WebB->LocationURL(), u"h.example/broker"_s);
        form.Web->hide();
        form.WebB->show();
        window.Click(5);
        QCOMPARE(window.Stored("DefaultWeb"), u"Bh.example/broker"_s);
        window.Start();
        QVERIFY(!window.Form().WebB->isHidden());
        QVERIFY(window.Form().Web->isHidden());
        QTRY_COMPARE(window.Form().WebB->LocationURL(), u"h.example/broker"_s);
    }

    void AProblemReportStartsAMailWithTheVersions() {
        Window window;
        const auto written = window.Folder() / "mail.txt";
        const auto script = window.Folder() / "mail.sh";
        WriteWholeFile(script,
                       "printf %s \"$1\" > \"$0.new\"; mv \"$0.new\" '" + written.string() + "'\n");
        window.programs = "[programs]\nsupport = \"help@quorvane.example\"\nmail = \"/bin/sh " +
                          script.string() + "\"\n";
        window.Open();
        window.Use([](frmUser& dialog) { QTest::mouseClick(dialog.Label5, Qt::LeftButton); });
        const QString chromium = QString::fromLatin1(qWebEngineChromiumVersion());
        QTRY_VERIFY2(!ReadWholeFile(written).empty(), "no mail was begun");
        const QString mail = ToQt(ReadWholeFile(written));
        QVERIFY2(mail.startsWith(u"mailto:help@quorvane.example?subject=Tallowmere"_s),
                 qPrintable(mail));
        QVERIFY2(mail.contains(QString::fromLatin1(qVersion())) && mail.contains(chromium),
                 qPrintable(mail));
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void AboutTellsTheVersionsAndThatAnOldEngineIsOld() {
        Window window;
        window.Open();
        window.clock.now = QDateTime(QDate(2040, 1, 1), QTime(12, 0));
        window.Form().menus->about->trigger();
        QCOMPARE(window.prompts.messages.size(), 1);
        const QString about = window.prompts.messages.constFirst();
        QVERIFY2(about.startsWith(u"About Tallowmere: Tallowmere "_s), qPrintable(about));
        for (const char* version : {qWebEngineVersion(), qWebEngineChromiumVersion(),
                                    qWebEngineChromiumSecurityPatchVersion()})
            QVERIFY2(about.contains(QString::fromLatin1(version)), version);
        QVERIFY(about.contains(u"is old"_s));
        for (const QString& part : {u"MIT"_s, u"toml++"_s, u"Mark Gillard"_s,
                                    u"JSON for Modern C++"_s, u"Niels Lohmann"_s, u"Licences"_s})
            QVERIFY2(about.contains(part), qPrintable(part));
        window.clock.now = QDateTime(QDate(2010, 1, 1), QTime(12, 0));
        window.Form().menus->about->trigger();
        QVERIFY(!window.prompts.messages[1].contains(u"is old"_s));
        QVERIFY(window.prompts.messages[1].contains(u"is current"_s));
    }
};

TALLOWMERE_WEB_TEST_MAIN(SetupTest)
#include "SetupTest.moc"
