#include "mesh3D_gl/PainterOptions.h"

namespace mesh3D_gl {

PainterOptions::PainterOptions(const PainterOptions& other) : QObject(), _v(other._v) {}

PainterOptions& PainterOptions::operator=(const PainterOptions& other) {
    if (this != &other && _v.tied() != other._v.tied()) {
        _v = other._v;
        emit changed(this);
    }
    return *this;
}

} // namespace mesh3D_gl
