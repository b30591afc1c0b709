#include "oxa/ViewContainer.h"

#include <QtAlgorithms>

namespace oxa {

ViewContainer::ViewContainer(const std::wstring& id, const std::wstring& name) : id(id), name(name) {}

ViewContainer::~ViewContainer() {
    qDeleteAll(views);
}

void ViewContainer::AddView(oxaIO::IView* view) {
    if (view)
        views.push_back(view);
}

} // namespace oxa
