#pragma once

namespace model {

/// One texture coordinate pair of a mapped corner.
struct mapCoordsType {
    double u = 0.0;
    double v = 0.0;
};

} // namespace model
