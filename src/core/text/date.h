#pragma once

namespace tallowmere {

/// A day of the calendar; month and day count from 1.
struct Date {
    int year;
    int month;
    int day;
    friend bool operator==(const Date&, const Date&) = default;
};

} // namespace tallowmere
