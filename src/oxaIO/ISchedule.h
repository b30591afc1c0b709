#pragma once

#include "zentra_export.h"

#include <list>
#include <string>

namespace oxaIO {

class IDateTimeGroup;

/// A task of a schedule, with its sub-tasks. Implemented by the host's own model, which keeps
/// the ownership of the activities and dates it returns.
class ZENTRA_EXPORT IActivity {
public:
    virtual ~IActivity() = default;
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
    virtual std::wstring WBS() const = 0;
    /// -1 when the activity has no duration.
    virtual long Duration() const = 0;
    /// The model element the activity works on.
    virtual std::wstring RefID() const = 0;
    virtual const std::list<IActivity*>& SubActivities() const = 0;
    /// The start date, or null.
    virtual const IDateTimeGroup* Start() const = 0;
    /// The end date, or null.
    virtual const IDateTimeGroup* End() const = 0;
};

/// A schedule of the activity section. Implemented by the host's own model.
class ZENTRA_EXPORT ISchedule {
public:
    virtual ~ISchedule() = default;
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
    /// Written twice, as the schedule's reference and as its description.
    virtual std::wstring Reference() const = 0;
    /// -1 when the schedule has no duration.
    virtual long Duration() const = 0;
    virtual const std::list<IActivity*>& Activities() const = 0;
    /// Not written: a document takes the schedule's description from `Reference()`.
    virtual std::wstring Description() const = 0;
    virtual const IDateTimeGroup* Start() const = 0;
    virtual const IDateTimeGroup* End() const = 0;
};

} // namespace oxaIO
