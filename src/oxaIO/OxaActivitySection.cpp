#include "oxaIO/OxaActivitySection.h"

#include "oxaIO/ISchedule.h"

#include <QtAlgorithms>

namespace oxaIO {

OxaActivitySection::OxaActivitySection() : OxaSection(L"1.4") {
    InitPropertySection();
}

OxaActivitySection::~OxaActivitySection() {
    qDeleteAll(schedules);
}

void OxaActivitySection::AddSchedule(ISchedule* schedule) {
    if (schedule)
        schedules.push_back(schedule);
}

} // namespace oxaIO
