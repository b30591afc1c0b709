#include "oxa/Camera.h"

namespace oxa {

Camera::Camera(const oxaIO::VCoords3D& eye, const oxaIO::VCoords3D& lookAt, const oxaIO::VCoords3D& up,
               double nearPlane, double farPlane, double viewAngle, double aspectRatio, int projectionType)
    : eye(eye), lookAt(lookAt), up(up), nearPlane(nearPlane), farPlane(farPlane), viewAngle(viewAngle),
      aspectRatio(aspectRatio), projectionType(projectionType) {}

void Camera::ExpOrthoSize(double width, double height) {
    expOrthoWidth = width;
    expOrthoHeight = height;
}

void Camera::OrthoSize(double width, double height) {
    orthoWidth = width;
    orthoHeight = height;
}

void Camera::SavedPoints(const oxaIO::VCoords3D& eye, const oxaIO::VCoords3D& lookAt) {
    savedEye = eye;
    savedLookAt = lookAt;
}

} // namespace oxa
