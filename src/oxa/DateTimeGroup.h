#pragma once

#include "zentra_export.h"

#include "oxaIO/IDateTimeGroup.h"

namespace oxa {

/// The date and time of a `start` or `end` element; a new one is all zero.
class ZENTRA_EXPORT DateTimeGroup : public oxaIO::IDateTimeGroup {
public:
    void Date(int year, int month, int day);
    void Time(int hour, int minute, int second);

    int Year() const override { return year; }
    int Month() const override { return month; }
    int Day() const override { return day; }
    int Hour() const override { return hour; }
    int Minute() const override { return minute; }
    int Second() const override { return second; }

private:
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

} // namespace oxa
