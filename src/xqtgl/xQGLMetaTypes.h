#pragma once

// Value types that the view's signals carry, known to Qt's meta-type system so that hosts can
// queue those signals and tests can spy on them (after qRegisterMetaType).
#include "geometry/Point.h"
#include "geometry/primitives.h"

#include <QMetaType>

Q_DECLARE_METATYPE(geometry3D::Point)
Q_DECLARE_METATYPE(geometry3D::boundingbox)
