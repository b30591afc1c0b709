#include "oxaIO/OxaVisualisationSection.h"

#include "oxaIO/IView.h"

#include <QtAlgorithms>

#include <algorithm>

namespace oxaIO {

OxaVisualisationSection::OxaVisualisationSection() : OxaSection(L"1.4") {
    InitPropertySection();
}

OxaVisualisationSection::~OxaVisualisationSection() {
    qDeleteAll(viewContainers);
}

void OxaVisualisationSection::AddViewContainer(IViewContainer* container) {
    if (container)
        viewContainers.push_back(container);
}

bool OxaVisualisationSection::IsEmpty() const {
    return std::none_of(viewContainers.begin(), viewContainers.end(), [](const IViewContainer* container) {
        return container && !container->Views().empty();
    });
}

} // namespace oxaIO
