#include "oxa/Light.h"

#include "oxaIO/OxaTypes.h"

namespace oxa {

Light::Light(int number, const std::wstring& name, const oxaIO::VColor4& diffuse,
             const oxaIO::VColor4& specular, const oxaIO::VColor4& ambient, bool off)
    : diffuse(diffuse), specular(specular), ambient(ambient), off(off), number(number), name(name) {}

void Light::Spot(const oxaIO::VCoords3D& position, const oxaIO::VCoords3D& direction, double cutoff) {
    type = oxaIO::esSpot;
    this->position = position;
    this->direction = direction;
    this->cutoff = cutoff;
}

void Light::Positional(const oxaIO::VCoords3D& position) {
    type = oxaIO::esPositional;
    this->position = position;
}

void Light::Directional(const oxaIO::VCoords3D& direction) {
    type = oxaIO::esDirectional;
    this->direction = direction;
}

} // namespace oxa
