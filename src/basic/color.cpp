#include "basic/color.h"

namespace basic {

namespace {
QColor opaque_from_components(float r, float g, float b) {
    QColor color;
    color.setRgb(int(r * 255.0), int(g * 255.0), int(b * 255.0), 255);
    return color;
}
} // namespace

QColor convert_to_qcolor(const color3& c) { return opaque_from_components(c.r, c.g, c.b); }

QColor convert_to_qcolor(const color4& c) { return opaque_from_components(c.r, c.g, c.b); }

color3 convert_to_color3(const QColor& c) {
    return color3{float(c.red() / 255.0), float(c.green() / 255.0), float(c.blue() / 255.0)};
}

color4 convert_to_color4(const QColor& c) {
    return color4{float(c.red() / 255.0), float(c.green() / 255.0), float(c.blue() / 255.0), 0.0f};
}

color4 convert_to_color4(int r, int g, int b, double a) {
    return color4{float(r / 255.0), float(g / 255.0), float(b / 255.0), float(a)};
}

bool equals(const color4& left, const color4& right) {
    return &left == &right || (left.r == right.r && left.g == right.g && left.b == right.b && left.a == right.a);
}

bool equals(const color3& left, const color3& right) {
    return &left == &right || (left.r == right.r && left.g == right.g && left.b == right.b);
}

} // namespace basic
