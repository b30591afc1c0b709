#pragma once

#include "zentra_export.h"

#include <QString>

namespace basic {

/// Units of the model's quantities. The numbering is part of the exchange format.
enum unit : int {
    unit_unknown, unit_mm, unit_cm, unit_m, unit_km, unit_inch, unit_foot, unit_yard, unit_mile,
    unit_mm2, unit_cm2, unit_m2, unit_km2, unit_inch2, unit_foot2, unit_yard2, unit_mile2,
    unit_mm3, unit_cm3, unit_m3, unit_km3, unit_inch3, unit_foot3, unit_yard3, unit_mile3,
    unit_deg, unit_gon, unit_pcs, unit_min, unit_h, unit_d, unit_kg, unit_t,
    unit_EUR, unit_USD, unit_CNY
};

constexpr int unit_count = 36;

/// Factor from the unit to metre, square metre or cubic metre. These are the system's own figures
/// (a foot is 0.305 m, not 0.3048 m): documents written by other tools scale by exactly them.
/// Every unit that is not a length, area or volume, and any other value, gives 1.
ZENTRA_EXPORT double unit_scale(unit u);

/// The unit's text; "unknown" for any value outside the table.
ZENTRA_EXPORT QString unit_as_string(unit u);

/// The first unit whose text equals `text` exactly (case-sensitive); `unit_unknown` if none does.
ZENTRA_EXPORT unit string_to_unit(const QString& text);

} // namespace basic
