#pragma once

#include "zentra_export.h"

namespace oxaIO {

/// A date and a time of day as six numbers: the `start` and `end` of schedules and activities.
class ZENTRA_EXPORT IDateTimeGroup {
public:
    virtual ~IDateTimeGroup() = default;
    virtual int Year() const = 0;
    virtual int Month() const = 0;
    virtual int Day() const = 0;
    virtual int Hour() const = 0;
    virtual int Minute() const = 0;
    virtual int Second() const = 0;
};

} // namespace oxaIO
