#pragma once

#include "zentra_export.h"

#include "oxaIO/OxaTypes.h"

#include <list>
#include <string>

namespace oxaIO {

// The stored views of a document: containers of views, each view with its cameras, lights,
// clipping planes and background. Implemented by the project's visualisation records.

/// A camera of a stored view. Projection type 1 is orthographic, any other perspective.
class ZENTRA_EXPORT ICamera {
public:
    virtual ~ICamera() = default;
    virtual VCoords3D Eye() const = 0;
    virtual VCoords3D LookAt() const = 0;
    virtual VCoords3D Up() const = 0;
    virtual double NearPlane() const = 0;
    virtual double FarPlane() const = 0;
    /// In degrees.
    virtual double ViewAngle() const = 0;
    virtual double AspectRatio() const = 0;
    virtual int ProjectionType() const = 0;
    virtual double ExpOrthoWidth() const = 0;
    virtual double ExpOrthoHeight() const = 0;
    virtual double OrthoWidth() const = 0;
    virtual double OrthoHeight() const = 0;
    virtual VCoords3D SavedEye() const = 0;
    virtual VCoords3D SavedLookAt() const = 0;
};

/// A light of a stored view. Its type is the element code of its placement: 63 spot,
/// 64 positional, 65 directional; a light without placement has type 0.
class ZENTRA_EXPORT ILight {
public:
    virtual ~ILight() = default;
    virtual VColor4 Diffuse() const = 0;
    virtual VColor4 Specular() const = 0;
    virtual VColor4 Ambient() const = 0;
    virtual int Type() const = 0;
    virtual VCoords3D Position() const = 0;
    virtual VCoords3D Direction() const = 0;
    virtual bool IsOff() const = 0;
    /// In degrees; meaningful for a spot light.
    virtual double Cutoff() const = 0;
    virtual int Number() const = 0;
    virtual std::wstring Name() const = 0;
    virtual void Spot(const VCoords3D& position, const VCoords3D& direction, double cutoff) = 0;
    virtual void Positional(const VCoords3D& position) = 0;
    virtual void Directional(const VCoords3D& direction) = 0;
};

/// A clipping plane of a stored view: normal and distance from the origin.
class ZENTRA_EXPORT IClippingPlane {
public:
    virtual ~IClippingPlane() = default;
    virtual VCoords3D Normal() const = 0;
    virtual double Distance() const = 0;
    virtual bool IsOff() const = 0;
};

/// A stored view. The view owns its cameras, lights and clipping planes.
class ZENTRA_EXPORT IView {
public:
    virtual ~IView() = default;
    virtual std::list<ICamera*>& Cameras() = 0;
    virtual std::list<ILight*>& Lights() = 0;
    virtual std::list<IClippingPlane*>& ClippingPlanes() = 0;
    virtual VColor4 BackgroundColor() const = 0;
    virtual bool HasBackground() const = 0;
    virtual bool IsCurrent() const = 0;
    virtual std::wstring ThumbnailFile() const = 0;
    /// The thumbnail image's bytes, or null.
    virtual const unsigned char* ThumbnailData() const = 0;
    virtual long ThumbnailSize() const = 0;
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
};

/// A named group of stored views. It owns its views.
class ZENTRA_EXPORT IViewContainer {
public:
    virtual ~IViewContainer() = default;
    /// Takes the view over; a null view is ignored.
    virtual void AddView(IView* view) = 0;
    virtual const std::list<IView*>& Views() const = 0;
    virtual bool IsEmpty() const = 0;
    virtual std::wstring ID() const = 0;
    virtual std::wstring Name() const = 0;
};

} // namespace oxaIO
