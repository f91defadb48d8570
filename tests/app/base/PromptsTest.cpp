#include "app/base/Prompts.h"

#include "support/ModalDialog.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class PromptsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AMessageHasAnInformationIconAndItsTextAsItIs() {
        DialogPrompts prompts;
        WithDialog<QMessageBox>([&] { prompts.Message(u"<b>A</b> & B"_s, u"Quorvane"_s); },
                                [](QMessageBox& box) {
                                    QCOMPARE(box.windowTitle(), u"Quorvane"_s);
                                    QCOMPARE(box.text(), u"<b>A</b> & B"_s);
                                    QCOMPARE(box.textFormat(), Qt::PlainText);
                                    QCOMPARE(box.icon(), QMessageBox::Information);
                                });
    }

    void AQuestionIsAnsweredByYesAlone() {
        DialogPrompts prompts;
        for (const auto button : {QMessageBox::Yes, QMessageBox::No, QMessageBox::NoButton}) {
            bool answer = false;
            WithDialog<QMessageBox>(
                [&] { answer = prompts.Ask(u"Clear Stock List?"_s, u"Clear Stocks"_s); },
                [&](QMessageBox& box) {
                    QCOMPARE(box.text(), u"Clear Stock List?"_s);
                    if (button == QMessageBox::NoButton)
                        QTest::keyClick(&box, Qt::Key_Escape);
                    else
                        box.button(button)->click();
                });
            QCOMPARE(answer, button == QMessageBox::Yes);
        }
    }

    void AnInputShowsItsPromptAsItIsAndGivesWhatWasTyped() {
        DialogPrompts prompts;
        const QString prompt = u"A note on <B>R&D</B>\r\nand more"_s;
        std::optional<QString> answer;
        const auto ask = [&] { answer = prompts.Input(prompt, u"Ticker Notes"_s, u"old"_s); };
        WithDialog<QDialog>(ask, [&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Ticker Notes"_s);
            const auto* label = dialog.findChild<QLabel*>();
            QCOMPARE(label->text(), prompt);
            QCOMPARE(label->textFormat(), Qt::PlainText);
            // A label that belongs to a box shows an ampersand as an access key.
            QVERIFY(!label->buddy());
            auto* box = dialog.findChild<QLineEdit*>();
            QCOMPARE(box->text(), u"old"_s);
            QCOMPARE(box->selectedText(), u"old"_s);
            QTest::keyClicks(box, u"new"_s);
            QTest::keyClick(box, Qt::Key_Return);
        });
        QCOMPARE(answer, std::optional(u"new"_s));
        WithDialog<QDialog>(ask, [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(answer, std::nullopt);
    }

    void AQuestionHasTheDefaultThatItIsGiven() {
        DialogPrompts prompts;
        for (const auto byDefault : {Prompts::Answer::Yes, Prompts::Answer::No}) {
            bool answer = false;
            WithDialog<QMessageBox>(
                [&] { answer = prompts.Ask(u"Clear Stock List?"_s, u"Clear Stocks"_s, byDefault); },
                [&](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
            QCOMPARE(answer, byDefault == Prompts::Answer::Yes);
        }
    }

    void AnInputOfLinesTakesShiftEnterForItsText() {
        DialogPrompts prompts;
        std::optional<QString> answer;
        const auto ask = [&] {
            answer = prompts.InputLines(u"A note"_s, u"Ticker Notes"_s, u"old\nlines"_s);
        };
        WithDialog<QDialog>(ask, [&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Ticker Notes"_s);
            QCOMPARE(dialog.findChild<QLabel*>()->text(), u"A note"_s);
            auto* box = dialog.findChild<QPlainTextEdit*>();
            QCOMPARE(box->toPlainText(), u"old\nlines"_s);
            QVERIFY(box->height() > 3 * box->fontMetrics().lineSpacing());
            QTest::keyClick(box, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
            QTest::keyClicks(box, u"new"_s);
            QTest::keyClick(box, Qt::Key_Return);
        });
        QCOMPARE(answer, std::optional(u"old\nlines\nnew"_s));
        // What stood there is selected, as in a box of one line.
        WithDialog<QDialog>(ask, [](QDialog& dialog) {
            QTest::keyClicks(dialog.findChild<QPlainTextEdit*>(), u"other"_s);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        QCOMPARE(answer, std::optional(u"other"_s));
        WithDialog<QDialog>(ask, [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        QCOMPARE(answer, std::nullopt);
    }

    void ALongTextScrollsAndNoDialogIsLargerThanTheScreen() {
        DialogPrompts prompts;
        const QString text =
            QString(u"A line of a page. "_s).repeated(20'000) + QString(5000, u'x');
        const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
        const auto look = [&](QDialog& dialog) {
            QVERIFY(dialog.width() <= screen.width() && dialog.height() <= screen.height());
            auto* shown = dialog.findChild<QPlainTextEdit*>();
            QVERIFY(shown);
            QCOMPARE(shown->toPlainText(), text);
            QVERIFY(shown->isReadOnly());
            QVERIFY(shown->verticalScrollBar()->maximum() > 0);
        };
        WithDialog<QDialog>([&] { prompts.Message(text, u"h.example"_s); }, look);
        bool answer = false;
        WithDialog<QDialog>(
            [&] { answer = prompts.Ask(text, u"h.example"_s); },
            [&](QDialog& dialog) {
                look(dialog);
                dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Yes)->click();
            });
        QVERIFY(answer);
    }
};

QTEST_MAIN(PromptsTest)
#include "PromptsTest.moc"
