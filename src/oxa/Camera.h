#pragma once

#include "zentra_export.h"

#include "oxaIO/IView.h"

namespace oxa {

/// A camera of a stored view. The ortho sizes and the saved points start at zero and are set
/// apart, as a document may leave them out.
class ZENTRA_EXPORT Camera : public oxaIO::ICamera {
public:
    Camera(const oxaIO::VCoords3D& eye, const oxaIO::VCoords3D& lookAt, const oxaIO::VCoords3D& up,
           double nearPlane, double farPlane, double viewAngle, double aspectRatio, int projectionType);

    oxaIO::VCoords3D Eye() const override { return eye; }
    oxaIO::VCoords3D LookAt() const override { return lookAt; }
    oxaIO::VCoords3D Up() const override { return up; }
    double NearPlane() const override { return nearPlane; }
    double FarPlane() const override { return farPlane; }
    double ViewAngle() const override { return viewAngle; }
    double AspectRatio() const override { return aspectRatio; }
    int ProjectionType() const override { return projectionType; }
    double ExpOrthoWidth() const override { return expOrthoWidth; }
    double ExpOrthoHeight() const override { return expOrthoHeight; }
    double OrthoWidth() const override { return orthoWidth; }
    double OrthoHeight() const override { return orthoHeight; }
    oxaIO::VCoords3D SavedEye() const override { return savedEye; }
    oxaIO::VCoords3D SavedLookAt() const override { return savedLookAt; }

    void ExpOrthoSize(double width, double height);
    void OrthoSize(double width, double height);
    void SavedPoints(const oxaIO::VCoords3D& eye, const oxaIO::VCoords3D& lookAt);

private:
    oxaIO::VCoords3D eye;
    oxaIO::VCoords3D lookAt;
    oxaIO::VCoords3D up;
    double nearPlane;
    double farPlane;
    double viewAngle;
    double aspectRatio;
    int projectionType;
    double expOrthoWidth = 0.0;
    double expOrthoHeight = 0.0;
    double orthoWidth = 0.0;
    double orthoHeight = 0.0;
    oxaIO::VCoords3D savedEye;
    oxaIO::VCoords3D savedLookAt;
};

} // namespace oxa
