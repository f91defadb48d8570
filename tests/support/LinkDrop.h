#pragma once

#include "support/TestSession.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>

namespace tallowmere {

/// Drops what is dragged from one slot of the user's own links on another, as the window system
/// tells it; false when the slot does not take it.
inline bool DropLink(TestSession& session, int from, int to) {
    QMimeData mime;
    mime.setData(QStringLiteral("application/x-tallowmere-link"), QByteArray::number(from));
    const QPoint center = session.Link(to)->rect().center();
    QDragEnterEvent enter(center, Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(session.Link(to), &enter);
    QDropEvent drop(center, Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(session.Link(to), &drop);
    return enter.isAccepted();
}

} // namespace tallowmere
