#pragma once

#include "oxaIO/OxaSection.h"

#include <list>

namespace oxaIO {

class ISchedule;

/// The schedules of a document, with the properties and sets that belong to them. It owns its
/// schedules.
class ZENTRA_EXPORT OxaActivitySection : public OxaSection {
public:
    OxaActivitySection();
    ~OxaActivitySection() override;

    std::list<ISchedule*>& Schedules() { return schedules; }
    const std::list<ISchedule*>& Schedules() const { return schedules; }
    /// Appends a schedule and takes it over; null is ignored.
    void AddSchedule(ISchedule* schedule);

    /// No schedules. Properties and sets alone leave the section empty, so a document is not
    /// written with an activity section that has nothing to schedule.
    bool IsEmpty() const override { return schedules.empty(); }

private:
    std::list<ISchedule*> schedules;
};

} // namespace oxaIO
