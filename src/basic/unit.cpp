#include "basic/unit.h"

namespace basic {

namespace {

const QString unit_texts[unit_count] = {
    "unknown", "mm",    "cm",    "m",     "km",   "inch", "foot", "yard", "mile",
    "mm2",     "cm2",   "m2",    "km2",   "inch2", "foot2", "yard2", "mile2",
    "mm3",     "cm3",   "m3",    "km3",   "inch3", "foot3", "yard3", "mile3",
    "deg",     "gon",   "pcs",   "min",   "h",    "d",    "kg",   "t",
    "EUR",     "USD",   "CNY"};

const double unit_factors[unit_mile3 + 1] = {
    1,      0.001,  0.01,   1,       1000,       0.0254,     0.305,       0.914,       1609,
    1e-6,   0.0001, 1,      1e6,     0.00064516, 0.093025,   0.835396,    2588881,
    1e-9,   1e-6,   1,      1e9,     1.6387064e-5, 0.028372625, 0.763551944, 4165509529.0};

} // namespace

double unit_scale(unit u) {
    if (u < 0 || u > unit_mile3)
        return 1.0;
    return unit_factors[u];
}

QString unit_as_string(unit u) {
    if (u < 0 || u >= unit_count)
        return unit_texts[unit_unknown];
    return unit_texts[u];
}

unit string_to_unit(const QString& text) {
    for (int i = 0; i < unit_count; ++i)
        if (unit_texts[i] == text)
            return static_cast<unit>(i);
    return unit_unknown;
}

} // namespace basic
