#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <functional>

namespace tallowmere {

/// Runs `show`, which opens a modal dialog of the type and returns when it is closed; meanwhile
/// `use` works with the dialog. A dialog that `use` leaves open is closed as by Escape. Fails when
/// no such dialog appears.
template <typename Dialog>
void WithDialog(const std::function<void()>& show, const std::function<void(Dialog&)>& use) {
    bool appeared = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        appeared = true;
        use(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    show();
    QVERIFY2(appeared, "the dialog did not appear");
}

} // namespace tallowmere
