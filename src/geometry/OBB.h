#pragma once

#include "oxaIO/IOBB.h"
#include "vmp/Vector.h"
#include "zentra_export.h"

namespace geometry3D {

/// An oriented box in space: one corner `origin()` and the three edges `axis(0..2)` leaving it,
/// with their lengths, plus the rotation angles that produced it when a calculator found it.
/// Presented to the document layer as an `oxaIO::IOBB`.
class ZENTRA_EXPORT OBB : public oxaIO::IOBB {
public:
    /// All vectors and angles zero; the angles mean something only once a calculator stores them.
    OBB();
    OBB(const OBB& other) = default;
    OBB& operator=(const OBB& other) = default;
    ~OBB() override;

    oxaIO::VCoords3D Ref() const override;
    oxaIO::VCoords3D Vx() const override;
    oxaIO::VCoords3D Vy() const override;
    oxaIO::VCoords3D Vz() const override;

    const vmp::Vector& origin() const { return _origin; }
    void origin(const vmp::Vector& value) { _origin = value; }
    void origin(double x, double y, double z);

    /// Edge 0, 1 or 2; any other index gives a shared dummy vector.
    const vmp::Vector& axis(int i) const;
    /// The setters ignore an index other than 0 to 2.
    void axis(int i, const vmp::Vector& value);
    void axis(int i, double x, double y, double z);

    double alpha() const { return _alpha; }
    double beta() const { return _beta; }
    double gamma() const { return _gamma; }
    void angles(double alpha, double beta, double gamma);

    /// The triple product of the three edges, with its sign (negative for a left-handed
    /// triple), or -1.0 if an edge is not of length 3.
    double CalcVolume() const;

private:
    vmp::Vector* edge(int i);

    static const vmp::Vector _dummy;
    double _alpha;
    double _beta;
    double _gamma;
    vmp::Vector _origin;
    vmp::Vector _axis0;
    vmp::Vector _axis1;
    vmp::Vector _axis2;
};

/// "origin (%.3f/%.3f/%.3f) \n" on stdout.
ZENTRA_EXPORT void print(const OBB& box);

} // namespace geometry3D
