#pragma once

#include "shapes/Point.h"

#include <cmath>

// Defines the arithmetic of the plane on points that also stand for vectors.
namespace ShapeRecognizer {

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator*(double s, Point p) { return {s * p.x, s * p.y}; }
constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }

// Returns the length of a vector. For whole coordinates the root is correctly
// rounded, so equally long vectors compare equal. std::hypot is off by one unit now
// and then, which would break such ties; it is used only where the squares overflow
// or vanish.
inline double length(Point v)
{
    constexpr double vanishing = 1e-290;
    constexpr double overflowing = 1e290;
    const double squared = dot(v, v);
    if (squared > vanishing && squared < overflowing)
        return std::sqrt(squared);
    return std::hypot(v.x, v.y);
}

inline double distance(Point a, Point b) { return length(b - a); }
inline double direction(Point v) { return std::atan2(v.y, v.x); } // radians, −π … π
inline Point unit(double angle) { return {std::cos(angle), std::sin(angle)}; }

// Turns p by the angle that `axis`, a unit vector, makes with the x axis.
constexpr Point turned(Point p, Point axis)
{
    return {axis.x * p.x - axis.y * p.y, axis.y * p.x + axis.x * p.y};
}

// Turns p the opposite way: returns p in the frame whose first axis is `axis`.
constexpr Point inFrame(Point p, Point axis)
{
    return {axis.x * p.x + axis.y * p.y, axis.x * p.y - axis.y * p.x};
}

} // namespace ShapeRecognizer
