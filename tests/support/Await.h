#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <functional>

namespace tallowmere {

/// Waits until the condition holds; false when it does not in time. It waits in an event loop of
/// its own: between two turns of the test library's waits lies a sleep, and the engine needs
/// hundreds of turns to load a page.
inline bool Await(const std::function<bool()>& condition,
                  std::chrono::milliseconds patience = std::chrono::seconds(10)) {
    const QDeadlineTimer deadline(patience);
    while (!condition() && !deadline.hasExpired()) {
        QEventLoop loop;
        QTimer::singleShot(std::chrono::milliseconds(2), &loop, &QEventLoop::quit);
        loop.exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
}

} // namespace tallowmere
