#include "app/engine/UserInput.h"

#include <QChildEvent>
#include <QWheelEvent>
#include <QWidget>

namespace tallowmere {

namespace {

constexpr qint64 kFreshMilliseconds = 5000; // as long as browsers take a click for the cause

} // namespace

UserInput::UserInput(QWidget* view) : QObject(view) {
    Watch(view);
}

bool UserInput::IsFresh() const {
    return m_since.isValid() && m_since.elapsed() <= kFreshMilliseconds;
}

// The engine puts a widget of its own into the view, another for each process that draws.
void UserInput::Watch(QObject* object) {
    object->installEventFilter(this);
    for (QObject* child : object->children())
        if (child->isWidgetType())
            Watch(child);
}

bool UserInput::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ChildAdded:
        if (QObject* child = static_cast<QChildEvent*>(event)->child(); child->isWidgetType())
            Watch(child);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::TouchEnd:
        m_since.start();
        Q_EMIT Happened();
        break;
    case QEvent::Wheel:
        // The engine has steps and limits of its own for this, and keeps them to itself.
        if (const auto* wheel = static_cast<QWheelEvent*>(event);
            wheel->modifiers().testFlag(Qt::ControlModifier)) {
            Q_EMIT Scaled(wheel->angleDelta().y());
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
