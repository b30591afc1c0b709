#pragma once

#include "oxaIO/OxaSection.h"

#include <list>

namespace oxaIO {

class IViewContainer;

/// The stored views of a document, grouped in view containers. It owns its view containers.
class ZENTRA_EXPORT OxaVisualisationSection : public OxaSection {
public:
    OxaVisualisationSection();
    ~OxaVisualisationSection() override;

    std::list<IViewContainer*>& ViewContainers() { return viewContainers; }
    const std::list<IViewContainer*>& ViewContainers() const { return viewContainers; }
    /// Appends a view container and takes it over; null is ignored.
    void AddViewContainer(IViewContainer* container);

    /// True when no container holds a view: containers without views are not worth writing.
    bool IsEmpty() const override;

private:
    std::list<IViewContainer*> viewContainers;
};

} // namespace oxaIO
