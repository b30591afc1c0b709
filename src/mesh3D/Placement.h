#pragma once

#include "zentra_export.h"

namespace mesh3D {

/// The translation and per-axis scale that an element of the tree carries for its geometry:
/// a translation of 0 and a scale of 1 until they are set.
class ZENTRA_EXPORT Placement {
public:
    void translate(double x, double y, double z);
    double translate_x() const { return _translate[0]; }
    double translate_y() const { return _translate[1]; }
    double translate_z() const { return _translate[2]; }
    void translate_x(double value) { _translate[0] = value; }
    void translate_y(double value) { _translate[1] = value; }
    void translate_z(double value) { _translate[2] = value; }

    void scale(double x, double y, double z);
    double scale_x() const { return _scale[0]; }
    double scale_y() const { return _scale[1]; }
    double scale_z() const { return _scale[2]; }
    void scale_x(double value) { _scale[0] = value; }
    void scale_y(double value) { _scale[1] = value; }
    void scale_z(double value) { _scale[2] = value; }

protected:
    ~Placement() = default;
    /// Translation 0, scale 1.
    void reset_placement();

private:
    double _translate[3] = {0.0, 0.0, 0.0};
    double _scale[3] = {1.0, 1.0, 1.0};
};

} // namespace mesh3D
