#include "app/base/Prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QWidget* Front() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QDialogButtonBox* MakeButtons(
    QDialog& dialog,
    QDialogButtonBox::StandardButtons standard = QDialogButtonBox::Ok | QDialogButtonBox::Cancel) {
    auto* buttons = new QDialogButtonBox(standard);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

// A message box grows with its text, beyond the screen.
bool IsLong(const QString& text) {
    constexpr qsizetype characters = 800;
    constexpr qsizetype lines = 16;
    constexpr qsizetype unbroken = 200;
    static const QRegularExpression run(u"\\S{%1}"_s.arg(unbroken));
    return text.size() > characters || text.count(u'\n') > lines || text.contains(run);
}

bool RunLong(const QString& text, const QString& title, QDialogButtonBox::StandardButtons buttons,
             QDialogButtonBox::StandardButton byDefault) {
    QDialog dialog(Front());
    dialog.setWindowTitle(title);
    auto* shown = new QPlainTextEdit(text);
    shown->setObjectName(u"PromptText"_s);
    shown->setAccessibleName(title);
    shown->setReadOnly(true);
    shown->setTabChangesFocus(true);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(shown);
    QDialogButtonBox* row = MakeButtons(dialog, buttons);
    row->button(byDefault)->setDefault(true);
    layout->addWidget(row);
    const QSize screen = dialog.screen()->availableGeometry().size();
    const QSize wanted(shown->fontMetrics().averageCharWidth() * 90,
                       shown->fontMetrics().lineSpacing() * 24);
    dialog.resize(wanted.boundedTo(screen * 0.8));
    return dialog.exec() == QDialog::Accepted;
}

/// A box of several lines in which Enter gives the answer, as in every other box of the program,
/// and Shift+Enter begins a line.
class LinesBox : public QPlainTextEdit {
public:
    LinesBox(const QString& text, QDialog& dialog) : QPlainTextEdit(text), m_dialog(dialog) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!isEnter)
            QPlainTextEdit::keyPressEvent(event);
        else if (event->modifiers() & Qt::ShiftModifier)
            insertPlainText(QStringLiteral("\n"));
        else
            m_dialog.accept();
    }

private:
    QDialog& m_dialog;
};

// The answer is what stood there when it was given: keys that were pressed right after it may still
// reach the box before its window is gone.
std::optional<QString> AnswerOf(QDialog& dialog, const std::function<QString()>& text) {
    std::optional<QString> answer;
    QObject::connect(&dialog, &QDialog::accepted, &dialog, [&] { answer = text(); });
    dialog.exec();
    return answer;
}

} // namespace

void DialogPrompts::Message(const QString& text, const QString& title) {
    if (IsLeft()) {
        std::fprintf(stderr, "tallowmere: %s\n", qUtf8Printable(text));
        return;
    }
    if (IsLong(text)) {
        RunLong(text, title, QDialogButtonBox::Ok, QDialogButtonBox::Ok);
        return;
    }
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok, Front());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool DialogPrompts::Ask(const QString& text, const QString& title, Answer byDefault) {
    const bool isYes = byDefault == Answer::Yes;
    if (IsLeft())
        return false;
    if (IsLong(text))
        return RunLong(text, title, QDialogButtonBox::Yes | QDialogButtonBox::No,
                       isYes ? QDialogButtonBox::Yes : QDialogButtonBox::No);
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No,
                    Front());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(isYes ? QMessageBox::Yes : QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::optional<QString> DialogPrompts::Input(const QString& prompt, const QString& title,
                                            const QString& preset) {
    if (IsLeft())
        return std::nullopt;
    QDialog dialog(Front());
    dialog.setWindowTitle(title);
    auto* question = new QLabel(prompt);
    question->setTextFormat(Qt::PlainText);
    auto* answer = new QLineEdit(preset);
    answer->setAccessibleName(prompt);
    answer->selectAll();
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(question);
    layout->addWidget(answer);
    layout->addWidget(MakeButtons(dialog));
    return AnswerOf(dialog, [=] { return answer->text(); });
}

std::optional<QString> DialogPrompts::InputLines(const QString& prompt, const QString& title,
                                                 const QString& preset) {
    if (IsLeft())
        return std::nullopt;
    constexpr int kColumns = 60;
    constexpr int kLines = 8;
    QDialog dialog(Front());
    dialog.setWindowTitle(title);
    auto* question = new QLabel(prompt);
    question->setTextFormat(Qt::PlainText);
    auto* answer = new LinesBox(preset, dialog);
    answer->setAccessibleName(prompt);
    answer->setTabChangesFocus(true);
    answer->selectAll();
    auto* hint = new QLabel(u"Shift+Enter begins a new line."_s);
    hint->setTextFormat(Qt::PlainText);
    answer->setAccessibleDescription(hint->text());
    const QFontMetrics metrics = answer->fontMetrics();
    const int lines = std::clamp(static_cast<int>(preset.count(u'\n')) + 2, kLines, 2 * kLines);
    answer->setMinimumHeight(4 * metrics.lineSpacing());
    QDialogButtonBox* buttons = MakeButtons(dialog);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(question);
    layout->addWidget(answer, 1);
    layout->addWidget(hint);
    layout->addWidget(buttons);
    const QSize screen = dialog.screen()->availableGeometry().size();
    dialog.resize(QSize(metrics.averageCharWidth() * kColumns, dialog.sizeHint().height() -
                                                                   answer->sizeHint().height() +
                                                                   lines * metrics.lineSpacing())
                      .boundedTo(screen * 0.8));
    answer->setFocus();
    return AnswerOf(dialog, [=] { return answer->toPlainText(); });
}

std::optional<QString> DialogPrompts::SaveFile(const QString& title, const QString& suggested,
                                               const QString& filter) {
    if (IsLeft())
        return std::nullopt;
    const QString path = QFileDialog::getSaveFileName(Front(), title, suggested, filter);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

std::optional<QString> DialogPrompts::OpenFile(const QString& title, const QString& folder,
                                               const QString& filter) {
    if (IsLeft())
        return std::nullopt;
    const QString path = QFileDialog::getOpenFileName(Front(), title, folder, filter);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

std::optional<QString> DialogPrompts::OpenFolder(const QString& title, const QString& folder) {
    if (IsLeft())
        return std::nullopt;
    const QString path = QFileDialog::getExistingDirectory(Front(), title, folder);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

bool DialogPrompts::ChoosePrinter(QPrinter& printer, const QString& title) {
    if (IsLeft())
        return false;
    QPrintDialog dialog(&printer, Front());
    dialog.setWindowTitle(title);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}

std::optional<QColor> DialogPrompts::PickColor(const QColor& initial, const QString& title) {
    if (IsLeft())
        return std::nullopt;
    const QColor color = QColorDialog::getColor(initial, Front(), title);
    return color.isValid() ? std::optional(color) : std::nullopt;
}

} // namespace tallowmere
