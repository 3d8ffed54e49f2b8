// vector.h: the few plane figures that arcs and drawings share.

#pragma once

#include <algorithm>

/// π to the digits that the whole system uses; the library's own would move results by a last digit.
constexpr double Pi = 3.14159265358979;

/// The polar angle of the vector (x, y) in radians, counter-clockwise from the positive x axis, from
/// 0 up to but not including 2π. The zero vector has the angle π.
double VectorAngle(double x, double y);

/// Radians to degrees, in single precision.
float RadToDeg(float angle);

template <class Number> Number MaxOf(Number a, Number b)
{
    return std::max(a, b);
}
template <class Number> Number MinOf(Number a, Number b)
{
    return std::min(a, b);
}
