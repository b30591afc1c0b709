#include "basic/numeric.h"

#include <QString>

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace basic {

int sgn(double value) {
    if (value > 0)
        return 1;
    if (value < 0)
        return -1;
    return 0;
}

double to_degrees(double radians) { return radians * 180.0 / M_PI; }

double to_radians(double degrees) { return degrees * M_PI / 180.0; }

bool nearly_equal(double a, double b, double eps) { return std::fabs(a - b) < eps; }

double round_to_digits(double value, int digits) {
    double scale = 1.0;
    double base = 10.0;
    for (unsigned int e = static_cast<unsigned int>(digits < 0 ? -digits : digits); e != 0; e >>= 1) {
        if (e & 1u)
            scale *= base;
        base *= base;
    }
    const double factor = digits < 0 ? 1.0 / scale : scale;
    const double t = value * factor;
    const double rounded = t >= 0 ? std::floor(t + 0.5) : std::ceil(t - 0.5);
    return rounded / factor;
}

double random01() {
    static bool seeded = false;
    if (!seeded) {
        std::srand(static_cast<unsigned int>(std::time(nullptr)));
        seeded = true;
    }
    // Fifteen bits whatever RAND_MAX is, so the value stays below 1 on every C library.
    return (std::rand() & 0x7FFF) * 3.0517578125e-5;
}

unsigned int hash_text(const QString& text) {
    quint32 h = 0;
    for (const QChar c : text)
        h = ((h << 16) + c.unicode()) % 1339484197u;
    return h;
}

} // namespace basic
