#pragma once

#include "core/text/date.h"

#include <QDateTime>

namespace tallowmere {

/// The one source of "now", which tests replace.
class Clock {
public:
    virtual ~Clock() = default;

    /// The local date and time.
    virtual QDateTime Now() const { return QDateTime::currentDateTime(); }

    /// Today's local date.
    Date Today() const {
        const QDate date = Now().date();
        return {date.year(), date.month(), date.day()};
    }

    /// Seconds since local midnight, with fractions.
    double SecondsSinceMidnight() const { return Now().time().msecsSinceStartOfDay() / 1000.0; }
};

} // namespace tallowmere
