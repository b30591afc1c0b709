#include "oxa/View.h"

#include <QtAlgorithms>

namespace oxa {

View::View(const std::wstring& id, const std::wstring& name, bool current, const std::wstring& thumbnailFile)
    : current(current), thumbnailFile(thumbnailFile), id(id), name(name) {}

View::~View() {
    qDeleteAll(cameras);
    qDeleteAll(lights);
    qDeleteAll(clippingPlanes);
    delete[] thumbnailData;
}

void View::BackgroundColor(const oxaIO::VColor4& color) {
    background = color;
    hasBackground = true;
}

void View::ThumbnailData(unsigned char* data, unsigned int size) {
    delete[] thumbnailData;
    thumbnailData = data;
    thumbnailSize = data ? size : 0;
}

} // namespace oxa
