// Times the walks of a document model that a writer runs before every write, on a document of
// 100 000 3D objects with one property each, against the bare cost of building the same sorted
// identifier set from a ready list.

#include "../tests/oxaIO/TestModel.h"

#include "oxaIO/OxaObjectSection.h"
#include "oxaIO/OxaObjects.h"
#include "oxaIO/OxaPropertySection.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <set>
#include <vector>

using namespace oxaIO;
using namespace testmodel;

namespace {

const int containerCount = 100;
const int objectsPerContainer = 1000;
const int runs = 5;

template <typename Work> double BestSeconds(Work work) {
    double best = 1e300;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        work();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

/// Builds the document and lists its identifiers in the order in which the walk meets them.
OxaObjects* BuildDocument(std::vector<std::wstring>& walkOrder) {
    auto* document = new OxaObjects();
    auto* root = new Container(L"root");
    walkOrder.push_back(root->ID());
    std::vector<std::wstring> propertyIDs;
    for (int c = 0; c < containerCount; ++c) {
        auto* container = root->Add(new Container(L"container-" + std::to_wstring(c)));
        walkOrder.push_back(container->ID());
        for (int o = 0; o < objectsPerContainer; ++o) {
            const std::wstring id = L"object-" + std::to_wstring(c) + L"-" + std::to_wstring(o);
            container->Add(new Object3D(id))->AddPolygon(new Polygon(o % 2));
            walkOrder.push_back(id);
            propertyIDs.push_back(id);
            auto* property = new VOxaPropertyType();
            property->refID = id;
            property->name = L"volume";
            property->datatype = L"xs:double";
            property->value = L"1.0";
            document->ObjectSection().PropertySection().AddProperty(property);
        }
    }
    document->ObjectSection().AddContainer(root);
    walkOrder.insert(walkOrder.end(), propertyIDs.begin(), propertyIDs.end());
    return document;
}

} // namespace

int main() {
    const auto buildStart = std::chrono::steady_clock::now();
    std::vector<std::wstring> walkOrder;
    OxaObjects* document = BuildDocument(walkOrder);
    const double buildSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - buildStart).count();

    size_t idCount = 0;
    const double mapSeconds = BestSeconds([&] { idCount = document->GetIDsToBeMapped().size(); });
    int untessellated = 0;
    const double countSeconds =
        BestSeconds([&] { untessellated = document->ObjectSection().CountPolygonsWithoutTesselation(); });

    std::set<std::wstring> plain;
    const double plainSeconds = BestSeconds([&] {
        plain.clear();
        plain.insert(walkOrder.begin(), walkOrder.end());
    });

    const auto deleteStart = std::chrono::steady_clock::now();
    delete document;
    const double deleteSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - deleteStart).count();

    std::printf("document of %d objects: build %.3f s; delete %.3f s; %d live test objects after delete\n",
                containerCount * objectsPerContainer, buildSeconds, deleteSeconds, Counted::alive);
    std::printf("count polygons without tessellation (%d): %.4f s\n", untessellated, countSeconds);
    std::printf(
        "ids to be mapped (%zu ids): %.4f s; plain set insert of the same %zu texts: %.4f s; ratio %.2f\n",
        idCount, mapSeconds, walkOrder.size(), plainSeconds, mapSeconds / plainSeconds);
    return plain.size() == idCount ? 0 : 1;
}
