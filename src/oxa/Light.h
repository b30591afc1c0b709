#pragma once

#include "zentra_export.h"

#include "oxaIO/IView.h"

namespace oxa {

/// A light of a stored view. Its type is the element code of its placement, set by the three
/// placement setters (63 spot, 64 positional, 65 directional); a new light has type 0.
class ZENTRA_EXPORT Light : public oxaIO::ILight {
public:
    Light(int number, const std::wstring& name, const oxaIO::VColor4& diffuse, const oxaIO::VColor4& specular,
          const oxaIO::VColor4& ambient, bool off);

    oxaIO::VColor4 Diffuse() const override { return diffuse; }
    oxaIO::VColor4 Specular() const override { return specular; }
    oxaIO::VColor4 Ambient() const override { return ambient; }
    int Type() const override { return type; }
    oxaIO::VCoords3D Position() const override { return position; }
    oxaIO::VCoords3D Direction() const override { return direction; }
    bool IsOff() const override { return off; }
    double Cutoff() const override { return cutoff; }
    int Number() const override { return number; }
    std::wstring Name() const override { return name; }
    void Spot(const oxaIO::VCoords3D& position, const oxaIO::VCoords3D& direction, double cutoff) override;
    void Positional(const oxaIO::VCoords3D& position) override;
    void Directional(const oxaIO::VCoords3D& direction) override;

    void Diffuse(const oxaIO::VColor4& color) { diffuse = color; }
    void Specular(const oxaIO::VColor4& color) { specular = color; }
    void Ambient(const oxaIO::VColor4& color) { ambient = color; }

private:
    oxaIO::VColor4 diffuse;
    oxaIO::VColor4 specular;
    oxaIO::VColor4 ambient;
    int type = 0;
    oxaIO::VCoords3D position;
    oxaIO::VCoords3D direction;
    bool off;
    double cutoff = 0.0;
    int number;
    std::wstring name;
};

} // namespace oxa
