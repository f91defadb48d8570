#include "app/base/PlainLabels.h"

#include <QEvent>
#include <QLabel>

namespace tallowmere {

// A label is polished before it is first shown, and a tool tip before it has a text.
bool PlainLabels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Polish)
        if (auto* label = qobject_cast<QLabel*>(watched);
            label && label->textFormat() == Qt::AutoText)
            label->setTextFormat(Qt::PlainText);
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
