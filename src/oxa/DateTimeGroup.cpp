#include "oxa/DateTimeGroup.h"

namespace oxa {

void DateTimeGroup::Date(int year, int month, int day) {
    this->year = year;
    this->month = month;
    this->day = day;
}

void DateTimeGroup::Time(int hour, int minute, int second) {
    this->hour = hour;
    this->minute = minute;
    this->second = second;
}

} // namespace oxa
