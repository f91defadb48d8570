#include "app/custom/CustomEditor.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmColor.h"
#include "app/forms/frmCustom.h"
#include "app/portfolio/Portfolios.h"
#include "app/tools/ColorConfig.h"
#include "app/tools/ColorSettings.h"
#include "core/shell/conversion.h"
#include "core/tools/color_values.h"
#include "support/ModalDialog.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QScrollBar>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class ColorDialogTest : public QObject {
    Q_OBJECT
private:
    static constexpr int kAreaCount = 15;
    static constexpr int kNewsArea = 7;
    static constexpr int kRightSideArea = 11;
    static constexpr int kWindowArea = 14;

    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Start();
        }

        void Use(const std::function<void(frmColor&)>& use) {
            ColorSettings& dialogs = *(**this).Controllers().tools.colorSettings;
            WithDialog<frmColor>([&] { dialogs.Show(&Form()); }, use);
        }
        QString Color(const char* key) { return ToQt(Settings().GetSetting("Colors", key, "-")); }
    };

    static void ClickArea(frmColor& dialog, int area) {
        const QModelIndex item = dialog.List1->model()->index(area, 0);
        dialog.List1->scrollTo(item);
        QTest::mouseClick(dialog.List1->viewport(), Qt::LeftButton, {},
                          dialog.List1->visualRect(item).center());
    }
    static QColor SampleText(const frmColor& dialog) {
        return dialog.Label1->palette().color(QPalette::WindowText);
    }
    static QColor SampleBackground(const frmColor& dialog) {
        return dialog.Label1->palette().color(QPalette::Window);
    }

    static bool IsLegible(const QColor& text, const QColor& background) {
        return Contrast(StoredColor(text), StoredColor(background)) >= kLegibleContrast;
    }

private Q_SLOTS:
    void FifteenAreasAreListedInTheirOrder() {
        Window window;
        window.Use([](frmColor& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Color Settings"_s);
            QCOMPARE(dialog.List1->Items(),
                     (QStringList{u"Ticker Entry Box"_s, u"Ticker List"_s, u"Portfolio Number"_s,
                                  u"Refresh/Navigate"_s, u"Wizard/Site/Realtime"_s,
                                  u"Message Boards"_s, u"Charting/Quotes"_s, u"News/Research"_s,
                                  u"Top Link Bar"_s, u"Navigate/Search"_s, u"Brokers"_s,
                                  u"Right Side Research"_s, u"Unused <Custom>"_s,
                                  u"Navigate Status Bar"_s, u"Window BackGround"_s}));
            QCOMPARE(dialog.Label1->text(), u"Sample"_s);
            QCOMPARE(dialog.cmdFore[0]->text(), u"&Fore"_s);
            QCOMPARE(dialog.cmdFore[1]->text(), u"&Back"_s);
            QCOMPARE(dialog.cmdOK->text(), u"&OK"_s);
            QVERIFY(dialog.cmdOK->isDefault());
        });
    }

    void EnterOnTheListIsTheDefaultButton() {
        Window window;
        window.Use([](frmColor& dialog) {
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QCOMPARE(dialog.focusWidget(), dialog.List1);
            QTest::keyClick(dialog.List1, Qt::Key_Return);
            QVERIFY(!dialog.isVisible());
        });
    }

    void AClickShowsTheColoursOfTheArea() {
        Window window;
        window.Settings().SaveSetting("Colors", "fNR", "65535"); // yellow: 0x00FFFF
        window.Use([](frmColor& dialog) {
            ClickArea(dialog, kNewsArea);
            QCOMPARE(SampleText(dialog), QColor(255, 255, 0));
            QCOMPARE(SampleBackground(dialog), QColor(128, 0, 0)); // 0x000080
            ClickArea(dialog, 6);
            QCOMPARE(SampleText(dialog), QColor(255, 255, 255));
            QCOMPARE(SampleBackground(dialog), QColor(0, 128, 128)); // 0x808000
        });
    }

    void AnUnusedCustomLinkIsShownInTheColourOfThisDialogNotOfTheEditor() {
        Window window;
        window.Use([](frmColor& dialog) {
            ClickArea(dialog, 12);
            QCOMPARE(SampleBackground(dialog), QColor(0xFF, 0xFF, 0xC0)); // 0xC0FFFF
        });
    }

    void ATextColourThatIsPickedIsSavedAtOnceTogetherWithTheBackground() {
        Window window;
        window.prompts.colors = {QColor(1, 2, 3)};
        window.Use([&](frmColor& dialog) {
            ClickArea(dialog, kNewsArea);
            QTest::mouseClick(dialog.cmdFore[0], Qt::LeftButton);
            QCOMPARE(window.prompts.initials, QList<QColor>{QColor(255, 255, 255)});
            QCOMPARE(SampleText(dialog), QColor(1, 2, 3));
            QCOMPARE(window.Color("fNR"), QString::number(0x030201));
            QCOMPARE(window.Color("bNR"), QString::number(0x000080));
        });
    }

    void ABackgroundThatIsPickedKeepsASystemTextColourAsItIs() {
        Window window;
        window.prompts.colors = {QColor(0, 0, 255)};
        window.Use([&](frmColor& dialog) {
            QTest::mouseClick(dialog.cmdFore[1], Qt::LeftButton);
            QCOMPARE(window.prompts.initials, QList<QColor>{QColor(0x80, 0xFF, 0x80)});
        });
        QCOMPARE(window.Color("bTE"), QString::number(0xFF0000));
        QCOMPARE(window.Color("fTE"), u"-2147483640"_s);
    }

    void AnAreaIsResetToItsDesign() {
        Window window;
        window.Settings().SaveSetting("Colors", "bNR", "255");
        window.Settings().SaveSetting("Colors", "fNR", "0");
        window.Settings().SaveSetting("Colors", "bTL", "255");
        window.Use([&](frmColor& dialog) {
            QCOMPARE(dialog.cmbScheme->currentIndex(), -1);
            ClickArea(dialog, kNewsArea);
            QTest::mouseClick(dialog.cmdReset, Qt::LeftButton);
            QCOMPARE(SampleBackground(dialog), QColor(128, 0, 0));
            QCOMPARE(SampleText(dialog), QColor(255, 255, 255));
        });
        QCOMPARE(window.Color("fNR"), u"-"_s);
        QCOMPARE(window.Color("bNR"), u"-"_s);
        QCOMPARE(window.Color("bTL"), u"255"_s);
    }

    void AllAreasAreResetToTheirDesign() {
        Window window;
        for (const char* key : {"bNR", "fTE", "bBack", "bCUST"})
            window.Settings().SaveSetting("Colors", key, "255");
        window.Use([&](frmColor& dialog) {
            QTest::mouseClick(dialog.cmdResetAll, Qt::LeftButton);
            QCOMPARE(dialog.cmbScheme->currentText(), u"As designed"_s);
        });
        for (const char* key : {"bNR", "fTE", "bBack", "bCUST"})
            QCOMPARE(window.Color(key), u"-"_s);
        // What the links of the user begin with is their own design again.
        window.ClickLink(102);
        QCOMPARE(window->Editor().Editor()->lblExamp->Colors().background, 0xC0E0FFU);
    }

    void ASchemeIsSeenAtOnceStoredAsThePairsAndUndoneInOneStep() {
        Window window;
        const frmMain& form = window.Form();
        const QColor designed = form.fraLeft->widget()->palette().color(QPalette::Window);
        window.Use([&](frmColor& dialog) {
            QCOMPARE(dialog.cmbScheme->currentText(), u"As designed"_s);
            dialog.cmbScheme->setFocus();
            QTest::keyClick(dialog.cmbScheme, Qt::Key_Down);
            QTest::keyClick(dialog.cmbScheme, Qt::Key_Down);
            QCOMPARE(dialog.cmbScheme->currentText(), u"Dark"_s);
            // The window behind the dialog, with all that stands in it.
            QVERIFY(form.fraLeft->widget()->palette().color(QPalette::Window).lightness() < 64);
            QVERIFY(form.SpooBar->palette().color(QPalette::Window).lightness() < 64);
            QVERIFY(
                form.fraRight->verticalScrollBar()->palette().color(QPalette::Button).lightness() <
                64);
            QCOMPARE(form.List1->palette().color(QPalette::Base), QColor(0x1B, 0x20, 0x27));
            QCOMPARE(window.Link(3)->Colors(), (ColorPair{0xE6EBC2, 0x383B1C}));
            QCOMPARE(window.Link(150)->Colors(), (ColorPair{0xB8C6C9, 0x282D2E}));
        });
        QCOMPARE(window.Color("bTL"), QString::number(0x27201B));
        QCOMPARE(window.Color("bBack"), QString::number(0x1D1814));
        QCOMPARE(window.Color("fBack"), u"-"_s);
        form.menus->undo->trigger(); // back to the scheme that the key passed on its way
        form.menus->undo->trigger();
        QCOMPARE(window.Color("bTL"), u"-"_s);
        QCOMPARE(form.fraLeft->widget()->palette().color(QPalette::Window), designed);
    }

    void CancelPutsBackWhatWasThereBefore() {
        Window window;
        window.Settings().SaveSetting("Colors", "bNR", "255");
        window.prompts.colors = {QColor(0, 0, 255)};
        window.Use([&](frmColor& dialog) {
            QTest::mouseClick(dialog.cmdFore[1], Qt::LeftButton);
            dialog.cmbScheme->setFocus();
            QTest::keyClick(dialog.cmbScheme, Qt::Key_End);
            QCOMPARE(dialog.cmbScheme->currentText(), u"High contrast"_s);
            QVERIFY(window.Color("bTL") != u"-"_s);
            QTest::mouseClick(dialog.cmdCancel, Qt::LeftButton);
            QVERIFY(!dialog.isVisible());
        });
        QCOMPARE(window.Color("bTL"), u"-"_s);
        QCOMPARE(window.Color("bTE"), u"-"_s);
        QCOMPARE(window.Color("bNR"), u"255"_s);
        QCOMPARE(window.Form().List1->palette().color(QPalette::Base), QColor(0, 0, 128));
    }

    void PagesOfOurOwnGoWithTheWindow() {
        Window window;
        const QSignalSpy applied(&window->Colors(), &ColorConfig::Applied);
        for (const auto& [color, scheme] : {std::pair{"0", PageScheme::Dark},
                                            {"16777215", PageScheme::Light},
                                            {"", PageScheme::Desktop}}) {
            window.Settings().SaveSetting("Colors", "bBack", color);
            window->Colors().Apply();
            QCOMPARE(applied.last().first().value<PageScheme>(), scheme);
        }
    }

    void AColourIsUndoneAndTheWindowFollows() {
        Window window;
        window.prompts.colors = {QColor(0, 0, 255)};
        window.Use([](frmColor& dialog) { QTest::mouseClick(dialog.cmdFore[1], Qt::LeftButton); });
        const frmMain& form = window.Form();
        QCOMPARE(form.menus->undo->text(), u"&Undo Color of Ticker Entry Box"_s);
        form.menus->undo->trigger();
        QCOMPARE(window.Color("bTE"), u"-"_s);
        QCOMPARE(form.txtStock->palette().color(QPalette::Base), QColor(0x80, 0xFF, 0x80));
        form.menus->redo->trigger();
        QCOMPARE(window.Color("bTE"), QString::number(0xFF0000));
        QCOMPARE(form.txtStock->palette().color(QPalette::Base), QColor(0, 0, 255));
    }

    void CancelChangesNothing() {
        Window window;
        window.prompts.colors = {std::nullopt, std::nullopt};
        window.Use([](frmColor& dialog) {
            ClickArea(dialog, kNewsArea);
            QTest::mouseClick(dialog.cmdFore[0], Qt::LeftButton);
            QTest::mouseClick(dialog.cmdFore[1], Qt::LeftButton);
            QCOMPARE(SampleText(dialog), QColor(255, 255, 255));
        });
        QCOMPARE(window.Color("fNR"), u"-"_s);
        QCOMPARE(window.Color("bNR"), u"-"_s);
    }

    void TheWindowHasABackgroundOnly() {
        Window window;
        window.prompts.colors = {QColor(255, 0, 0)};
        window.Use([](frmColor& dialog) {
            ClickArea(dialog, kWindowArea);
            QVERIFY(!dialog.cmdFore[0]->isEnabled());
            QTest::mouseClick(dialog.cmdFore[1], Qt::LeftButton);
            ClickArea(dialog, kRightSideArea);
            QVERIFY(dialog.cmdFore[0]->isEnabled());
        });
        QCOMPARE(window.Color("bBack"), u"255"_s);
        QCOMPARE(window.Color("fBack"), u"-"_s);
    }

    void ADamagedColourIsShownAsTheDefault() {
        Window window;
        window.Settings().SaveSetting("Colors", "bNR", "red");
        window.Use([](frmColor& dialog) {
            ClickArea(dialog, kNewsArea);
            QCOMPARE(SampleBackground(dialog), QColor(128, 0, 0));
        });
    }

    void TheWindowTakesTheColoursOfAllAreasAtItsStart() {
        TestSession window;
        window.Store("First", "OK");
        window.Store("CustomT101", "Mine");
        window.Store("CustomB101", "255");
        window.Store("CustomF101", "16777215");
        window.Settings().SaveSetting("Colors", "bCUST", "65280");
        window.Settings().SaveSetting("Colors", "bBack", "4210752");
        window.Settings().SaveSetting("Colors", "bTL", "0");
        window.Settings().SaveSetting("Colors", "fMB", "nonsense");
        window.Start();
        const frmMain& form = window.Form();
        QCOMPARE(form.txtStock->palette().color(QPalette::Base), QColor(0x80, 0xFF, 0x80));
        QCOMPARE(form.List1->palette().color(QPalette::Base), QColor(Qt::black));
        QCOMPARE(form.List1->palette().color(QPalette::Text), QColor(Qt::white));
        QCOMPARE(form.WebStatus->palette().color(QPalette::Window), QColor(0, 0, 0xC0));
        QCOMPARE(form.fraLeft->palette().color(QPalette::Window), QColor(0x40, 0x40, 0x40));
        QCOMPARE(form.fraRight->palette().color(QPalette::Window), QColor(0x40, 0x40, 0x40));
        // "Y!" is tagged "CQ", the message board "MB"; its damaged text colour is the default.
        QCOMPARE(window.Link(3)->Colors(), (ColorPair{0xFFFFFF, 0x808000}));
        QCOMPARE(window.Link(1)->Colors(), (ColorPair{kSystemWindowText, 0xFFFF80}));
        QCOMPARE(window.Link(101)->Colors(), (ColorPair{0xFFFFFF, 0x0000FF}));
        QCOMPARE(window.Link(102)->Colors(), (ColorPair{kSystemWindowText, 0x00FF00}));
    }

    void AnUnusedSlotHasItsOwnDefaultOnTheScreenAndAnotherInTheEditor() {
        Window window;
        QCOMPARE(window.Link(102)->Colors().background, 0xC0FFFFU);
        window.ClickLink(102);
        const frmCustom* editor = window->Editor().Editor();
        QVERIFY(editor);
        QCOMPARE(editor->lblExamp->Colors().background, 0xC0E0FFU);
        QCOMPARE(window.Link(102)->Colors().background, 0xC0FFFFU);
    }

    void EveryCaptionIsLegibleInTheDefaultColours() {
        Window window;
        for (const Chip* link : window.Form().lbllink) {
            const QColor text = ScreenText(link->Colors(), link->palette());
            const QColor background = ScreenColor(link->Colors().background, link->palette());
            QVERIFY2(Contrast(StoredColor(text), StoredColor(background)) >= kLegibleContrast,
                     qPrintable(link->Caption()));
        }
    }

    void EverythingIsLegibleOnADarkDesktopToo() {
        const QPalette before = QApplication::palette();
        const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
        QPalette dark;
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            dark.setColor(role, QColor(0x2B, 0x2B, 0x2B));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, QColor(0xE6, 0xE6, 0xE6));
        QApplication::setPalette(dark);
        Window window;
        const frmMain& form = window.Form();
        for (const Chip* link : form.lbllink)
            QVERIFY2(IsLegible(ScreenText(link->Colors(), link->palette()),
                               ScreenColor(link->Colors().background, link->palette())),
                     qPrintable(link->Caption()));
        for (const QWidget* box :
             {static_cast<QWidget*>(form.txtStock), static_cast<QWidget*>(form.List1)})
            QVERIFY2(IsLegible(box->palette().color(QPalette::Text),
                               box->palette().color(QPalette::Base)),
                     qPrintable(box->objectName()));
        for (const QWidget* label : {static_cast<QWidget*>(form.WebStatus), form.fraLeft->widget()})
            QVERIFY2(IsLegible(label->palette().color(QPalette::WindowText),
                               label->palette().color(QPalette::Window)),
                     qPrintable(label->objectName()));
        window.Use([](frmColor& dialog) {
            for (int area = 0; area < kAreaCount; ++area) {
                ClickArea(dialog, area);
                QVERIFY2(IsLegible(SampleText(dialog), SampleBackground(dialog)),
                         qPrintable(dialog.List1->Item(area)));
            }
        });
    }

    void ADesktopThatTurnsDarkTakesTheWindowWithIt() {
        const QPalette before = QApplication::palette();
        const auto restore = qScopeGuard([&] { QApplication::setPalette(before); });
        Window window;
        const QPalette& frame = window.Form().fraLeft->widget()->palette();
        QVERIFY(frame.color(QPalette::Window).lightnessF() > 0.5);
        QPalette dark = before;
        dark.setColor(QPalette::Button, QColor(0x2B, 0x2B, 0x2B));
        dark.setColor(QPalette::Window, QColor(0x2B, 0x2B, 0x2B));
        QApplication::setPalette(dark);
        QTRY_COMPARE(window.Form().fraLeft->widget()->palette().color(QPalette::Window),
                     QColor(0x2B, 0x2B, 0x2B));
        QVERIFY(IsLegible(window.Form().fraLeft->widget()->palette().color(QPalette::WindowText),
                          QColor(0x2B, 0x2B, 0x2B)));
    }

    void AnUnusedSlotShowsTheColoursOfItsAreaExactly() {
        Window window;
        Chip* slot = window.Link(150);
        const auto inside = [&] {
            const QImage image = slot->grab().toImage();
            return image.copy(image.rect().adjusted(3, 3, -3, -3));
        };
        QCOMPARE(inside().pixelColor(0, 0), QColor(0xFF, 0xFF, 0xC0));
        window.Settings().SaveSetting("Colors", "bCUST", "255");
        window.Settings().SaveSetting("Colors", "fCUST", "16711680");
        window->Colors().Apply();
        QCOMPARE(slot->Colors(), (ColorPair{16711680, 255}));
        QCOMPARE(inside().pixelColor(0, 0), QColor(255, 0, 0));
        // The caption is painted as on any other link.
        const QImage quiet = inside();
        slot->SetQuiet(false);
        QCOMPARE(inside(), quiet);
    }

    void AnUnusedSlotIsQuietButLegible_data() {
        QTest::addColumn<QColor>("behind");
        QTest::newRow("light") << QColor(0xF0, 0xF0, 0xF0);
        QTest::newRow("dark") << QColor(0x20, 0x20, 0x20);
    }
    void AnUnusedSlotIsQuietButLegible() {
        QFETCH(const QColor, behind);
        QWidget parent;
        QPalette palette;
        palette.setColor(QPalette::Window, behind);
        palette.setColor(QPalette::WindowText, Qt::black);
        parent.setPalette(palette);
        parent.resize(200, 60);
        Chip chip(u"lbllink"_s, 101, u"< MMMM >"_s, &parent);
        chip.SetColors({kSystemWindowText, kUnusedCustomBackground});
        chip.SetQuiet(true);
        chip.adjustSize();
        const QImage image = parent.grab(chip.geometry()).toImage();
        const QColor body = image.pixelColor(3, image.height() / 2);
        QCOMPARE(body, QColor(0xFF, 0xFF, 0xC0));
        double best = 1;
        for (int y = 3; y < image.height() - 3; ++y)
            for (int x = 3; x < image.width() - 3; ++x)
                best = std::max(best,
                                Contrast(StoredColor(image.pixelColor(x, y)), StoredColor(body)));
        QVERIFY2(best >= kLegibleContrast, qPrintable(QString::number(best)));
    }

    void TheHintInTheEntryBoxIsLegible() {
        Window window;
        const QPalette& palette = window.Form().txtStock->palette();
        const QColor hint = palette.color(QPalette::PlaceholderText);
        const QColor base = palette.color(QPalette::Base);
        const auto seen = [&](int ink, int paper) {
            return (ink * hint.alpha() + paper * (255 - hint.alpha())) / 255;
        };
        QVERIFY(IsLegible({seen(hint.red(), base.red()), seen(hint.green(), base.green()),
                           seen(hint.blue(), base.blue())},
                          base));
    }

    void SystemTextIsLegibleOnADarkDesktopToo() {
        QPalette dark;
        dark.setColor(QPalette::WindowText, Qt::white);
        const ColorPair entryBox{kSystemWindowText, 0x80FF80};
        QCOMPARE(ScreenText(entryBox, dark), QColor(Qt::black));
        const ColorPair chosen{0xFFFFFF, 0x80FF80};
        QCOMPARE(ScreenText(chosen, dark), QColor(Qt::white));
    }
};

TALLOWMERE_WEB_TEST_MAIN(ColorDialogTest)
#include "ColorDialogTest.moc"
