#include "app/forms/DialogKeys.h"

#include "app/forms/WindowCommands.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>

namespace tallowmere {

DialogKeys::DialogKeys(CommandKeys& keys, QObject* parent) : QObject(parent), m_keys(keys) {
    qApp->installEventFilter(this);
}

bool DialogKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show)
        return false;
    auto* dialog = qobject_cast<QDialog*>(watched);
    if (!dialog || qobject_cast<QMessageBox*>(dialog) || dialog->findChild<WindowCommands*>())
        return false;
    auto* commands = new WindowCommands(*dialog, m_keys, kDialogs);
    connect(commands->Offer("closeTab"), &QAction::triggered, dialog, &QDialog::reject);
    return false;
}

} // namespace tallowmere
