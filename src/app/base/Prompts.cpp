#include "app/base/Prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>

#include <cstdio>

namespace tallowmere {

namespace {

QWidget* Front() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

QDialogButtonBox* MakeButtons(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

} // namespace

void DialogPrompts::Message(const QString& text, const QString& title) {
    if (IsLeft()) {
        std::fprintf(stderr, "tallowmere: %s\n", qUtf8Printable(text));
        return;
    }
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok, Front());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool DialogPrompts::Ask(const QString& text, const QString& title) {
    if (IsLeft())
        return false;
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No,
                    Front());
    box.setTextFormat(Qt::PlainText);
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
    return dialog.exec() == QDialog::Accepted ? std::optional(answer->text()) : std::nullopt;
}

std::optional<SignIn> DialogPrompts::AskSignIn(const QString& text, const QString& title) {
    if (IsLeft())
        return std::nullopt;
    QDialog dialog(Front());
    dialog.setWindowTitle(title);
    auto* question = new QLabel(text);
    question->setTextFormat(Qt::PlainText);
    question->setWordWrap(true);
    auto* user = new QLineEdit;
    auto* password = new QLineEdit;
    password->setEchoMode(QLineEdit::Password);

    auto* layout = new QFormLayout(&dialog);
    layout->addRow(question);
    layout->addRow(QCoreApplication::translate("Prompts", "&User Name"), user);
    layout->addRow(QCoreApplication::translate("Prompts", "&Password"), password);
    layout->addRow(MakeButtons(dialog));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return SignIn{user->text(), password->text()};
}

std::optional<QString> DialogPrompts::SaveFile(const QString& title, const QString& suggested,
                                               const QString& filter) {
    if (IsLeft())
        return std::nullopt;
    const QString path = QFileDialog::getSaveFileName(Front(), title, suggested, filter);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

std::optional<QColor> DialogPrompts::PickColor(const QColor& initial, const QString& title) {
    if (IsLeft())
        return std::nullopt;
    const QColor color = QColorDialog::getColor(initial, Front(), title);
    return color.isValid() ? std::optional(color) : std::nullopt;
}

} // namespace tallowmere
