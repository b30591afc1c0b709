#pragma once

#include "zentra_export.h"

namespace xqtgl {

/// Stroke shapes of the view's 3D text, one entry per byte value, as runs
/// {type, count, x0, y0, ..., type, count, ..., -1}; type 1 is a line strip,
/// 2 separate lines, anything else a polygon. A glyph sits in a cell
/// `vector_font_advance` units wide and 100 high, y up from the baseline
/// (descenders go below 0). Returns null for a byte without a glyph.
ZENTRA_EXPORT const int* vector_font_glyph(unsigned char c);

/// Width of one character cell; the text routines scale it to one unit.
constexpr double vector_font_advance = 114.28571428571429;

} // namespace xqtgl
