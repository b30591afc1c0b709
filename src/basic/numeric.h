#pragma once

#include "zentra_export.h"

class QString;

namespace basic {

/// 1 for a positive argument, -1 for a negative one, 0 for zero and NaN.
ZENTRA_EXPORT int sgn(double value);

ZENTRA_EXPORT double to_degrees(double radians);
ZENTRA_EXPORT double to_radians(double degrees);

/// True when the absolute difference is strictly below `eps`.
ZENTRA_EXPORT bool nearly_equal(double a, double b, double eps);

/// Rounds half away from zero to `digits` decimals (negative: to tens, hundreds, ...).
ZENTRA_EXPORT double round_to_digits(double value, int digits);

/// A pseudo-random value at or above 0 and below 1 in steps of 1/32768; the generator is seeded
/// from the clock on the first call.
ZENTRA_EXPORT double random01();

/// The object model's cheap class-name hash: h = ((h << 16) + unit) mod 1339484197 over the
/// UTF-16 code units, wrapping at 32 bits. Stored hashes depend on exactly this formula.
ZENTRA_EXPORT unsigned int hash_text(const QString& text);

} // namespace basic
