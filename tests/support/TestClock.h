#pragma once

#include "app/base/Clock.h"

namespace tallowmere {

/// A clock that stands until the test moves it.
class TestClock : public Clock {
public:
    QDateTime now = QDateTime(QDate(2026, 11, 21), QTime(10, 0));
    QDateTime Now() const override { return now; }
};

} // namespace tallowmere
