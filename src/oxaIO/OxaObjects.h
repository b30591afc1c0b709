#pragma once

#include "zentra_export.h"

#include <memory>
#include <set>
#include <string>

namespace oxaIO {

class ExportContext;
class OxaActivitySection;
class OxaFitSection;
class OxaObjectSection;
class OxaTopologySection;
class OxaUnitSection;
class OxaVisualisationSection;

/// One exchange document in memory: its head and all its sections, each present from
/// construction on and empty at first. It owns the head and the sections, and through them
/// whatever was added to the sections (the set sections excepted, which own nothing). A
/// document is filled by a reader or by the host and can be written any number of times.
class ZENTRA_EXPORT OxaObjects {
public:
    OxaObjects();
    ~OxaObjects();
    OxaObjects(const OxaObjects&) = delete;
    OxaObjects& operator=(const OxaObjects&) = delete;

    ExportContext& Context() const { return *context; }
    OxaObjectSection& ObjectSection() const { return *objectSection; }
    OxaTopologySection& TopologySection() const { return *topologySection; }
    OxaVisualisationSection& VisualisationSection() const { return *visualisationSection; }
    OxaFitSection& GetFitSection() const { return *fitSection; }
    OxaUnitSection& GetUnitSection() const { return *unitSection; }
    OxaActivitySection& ActivitySection() const { return *activitySection; }

    /// True when every section is empty. The sections are asked in the order object, topology,
    /// fit, unit, visualisation, activity, and the question stops at the first that is not empty.
    bool IsEmpty() const;

    /// Rebuilds and returns the sorted set of every identifier and reference that a written
    /// document numbers in its ID map: materials, the container tree and its objects, height
    /// levels, view containers that hold views and their views, items, measured objects,
    /// schedules and activities, and the properties and sets of each section.
    std::set<std::wstring>& GetIDsToBeMapped();

private:
    std::unique_ptr<ExportContext> context;
    std::unique_ptr<OxaObjectSection> objectSection;
    std::unique_ptr<OxaTopologySection> topologySection;
    std::unique_ptr<OxaVisualisationSection> visualisationSection;
    std::unique_ptr<OxaFitSection> fitSection;
    std::unique_ptr<OxaUnitSection> unitSection;
    std::unique_ptr<OxaActivitySection> activitySection;
    std::set<std::wstring> idsToBeMapped;
};

} // namespace oxaIO
