#pragma once

#include "zentra_export.h"

#include <QColor>

namespace basic {

/// A colour with components from 0 to 1.
struct color3 {
    float r = 0, g = 0, b = 0;
};

/// A colour with transparency, components from 0 to 1.
struct color4 {
    float r = 0, g = 0, b = 0, a = 0;
};

/// Each component times 255, truncated. The result is always opaque: a colour4's `a` does not
/// take part, since every caller that wants transparency sets it apart.
ZENTRA_EXPORT QColor convert_to_qcolor(const color3& c);
ZENTRA_EXPORT QColor convert_to_qcolor(const color4& c);

/// Red, green and blue divided by 255.
ZENTRA_EXPORT color3 convert_to_color3(const QColor& c);
/// As `convert_to_color3`; the QColor's alpha is not read and `a` is always 0.
ZENTRA_EXPORT color4 convert_to_color4(const QColor& c);
/// Integer components from 0 to 255 divided by 255; the alpha is taken as it stands.
ZENTRA_EXPORT color4 convert_to_color4(int r, int g, int b, double a);

/// Exact comparison of every component, without tolerance.
ZENTRA_EXPORT bool equals(const color4& left, const color4& right);
ZENTRA_EXPORT bool equals(const color3& left, const color3& right);

} // namespace basic
