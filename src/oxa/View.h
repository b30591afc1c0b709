#pragma once

#include "zentra_export.h"

#include "oxaIO/IView.h"

namespace oxa {

/// One stored view of a document: its cameras, lights and clipping planes (which it owns), a
/// background colour if the document gives one, the current flag and a thumbnail, either as a
/// file name or as the image bytes themselves (owned, freed with `delete[]`).
class ZENTRA_EXPORT View : public oxaIO::IView {
public:
    View(const std::wstring& id, const std::wstring& name, bool current, const std::wstring& thumbnailFile);
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    ~View() override;

    std::list<oxaIO::ICamera*>& Cameras() override { return cameras; }
    std::list<oxaIO::ILight*>& Lights() override { return lights; }
    std::list<oxaIO::IClippingPlane*>& ClippingPlanes() override { return clippingPlanes; }
    oxaIO::VColor4 BackgroundColor() const override { return background; }
    bool HasBackground() const override { return hasBackground; }
    bool IsCurrent() const override { return current; }
    std::wstring ThumbnailFile() const override { return thumbnailFile; }
    const unsigned char* ThumbnailData() const override { return thumbnailData; }
    long ThumbnailSize() const override { return static_cast<long>(thumbnailSize); }
    std::wstring ID() const override { return id; }
    std::wstring Name() const override { return name; }

    /// Sets the background and marks the view as having one.
    void BackgroundColor(const oxaIO::VColor4& color);
    /// Takes the bytes over; earlier bytes are freed.
    void ThumbnailData(unsigned char* data, unsigned int size);

private:
    std::list<oxaIO::ICamera*> cameras;
    std::list<oxaIO::ILight*> lights;
    std::list<oxaIO::IClippingPlane*> clippingPlanes;
    oxaIO::VColor4 background;
    bool hasBackground = false;
    bool current;
    std::wstring thumbnailFile;
    unsigned char* thumbnailData = nullptr;
    unsigned int thumbnailSize = 0;
    std::wstring id;
    std::wstring name;
};

} // namespace oxa
