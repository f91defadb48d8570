#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

namespace tallowmere {

/// Hands an answer of the engine on once the engine is done, unless `owner` is gone by then: the
/// engine also calls back while a page goes, and the window around it with all that would take the
/// answer.
template <typename Owner, typename Value>
void AnswerLater(const QPointer<Owner>& owner, const std::function<void(const Value&)>& then,
                 const Value& value) {
    if (owner)
        QMetaObject::invokeMethod(
            owner, [then, value] { then(value); }, Qt::QueuedConnection);
}

} // namespace tallowmere
