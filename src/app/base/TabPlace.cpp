#include "app/base/TabPlace.h"

#include <QWidget>

namespace tallowmere {

void TakeTabPlace(QWidget& group) {
    QWidget* before = &group;
    // What takes no keys itself cannot be named as the one that comes before.
    do
        before = before->previousInFocusChain();
    while (before != &group &&
           (before->focusPolicy() == Qt::NoFocus || group.isAncestorOf(before)));
    if (before == &group)
        return;
    const QList<QWidget*> controls = group.findChildren<QWidget*>();
    for (QWidget* control : controls) {
        if (control->focusPolicy() == Qt::NoFocus || control->focusProxy())
            continue;
        QWidget::setTabOrder(before, control);
        before = control;
    }
}

} // namespace tallowmere
