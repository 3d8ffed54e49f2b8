// vector.h: the angle of a vector, as arcs and drawings share it.

#pragma once

/// π to the digits that the whole system uses; the library's own would move results by a last digit.
constexpr double Pi = 3.14159265358979;

/// The polar angle of the vector (x, y) in radians, counter-clockwise from the positive x axis, from
/// 0 up to but not including 2π. The zero vector has the angle π.
double VectorAngle(double x, double y);
