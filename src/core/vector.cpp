#include "core/vector.h"

#include <cmath>

double VectorAngle(double x, double y)
{
    constexpr double FullTurn = 6.28318530717959; // to these digits, one more in the last than 2 * Pi
    if (y == 0) return x > 0 ? 0 : Pi;
    if (x == 0) return y > 0 ? Pi / 2 : 3 * Pi / 2;
    const double a = std::abs(std::atan(y / x));
    if (x > 0) return y > 0 ? a : FullTurn - a;
    return y > 0 ? Pi - a : Pi + a;
}
