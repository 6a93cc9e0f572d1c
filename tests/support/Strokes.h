#pragma once

#include "shapes/ShapeRecognizer.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

// Makes strokes as a hand might draw them: outlines given by their vertices,
// followed at an even pace and shaken a little. y grows upwards.
namespace Strokes {

using ShapeRecognizer::Point;
using ShapeRecognizer::Points;

constexpr double turn = 2 * std::numbers::pi;

constexpr double radians(double degrees) { return degrees * turn / 360; }

using Dice = std::mt19937; // the same numbers on every machine and in every run

inline double between(double low, double high, Dice &dice)
{
    return low + (high - low) * static_cast<double>(dice()) / static_cast<double>(Dice::max());
}

inline double gap(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }

// Returns the path through the vertices as points about `step` apart, vertices
// included.
inline Points along(const Points &vertices, double step)
{
    Points points{vertices.front()};
    for (std::size_t i = 1; i < vertices.size(); ++i) {
        const Point from = vertices[i - 1];
        const Point to = vertices[i];
        const int steps = std::max(1, static_cast<int>(gap(from, to) / step));
        for (int k = 1; k <= steps; ++k) {
            const double t = static_cast<double>(k) / steps;
            points.push_back({from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)});
        }
    }
    return points;
}

inline Points closed(Points vertices)
{
    vertices.push_back(vertices.front());
    return vertices;
}

inline Points ellipse(double a, double b, double from = 0, double sweep = turn)
{
    Points points;
    for (int i = 0; i <= 120; ++i) {
        const double t = from + sweep * i / 120;
        points.push_back({a * std::cos(t), b * std::sin(t)});
    }
    return points;
}

inline Points polygon(int sides, double radius)
{
    Points vertices;
    for (int i = 0; i < sides; ++i)
        vertices.push_back({radius * std::cos(i * turn / sides), radius * std::sin(i * turn / sides)});
    return closed(vertices);
}

// Returns alternating tips and valleys, or a pentagram when the inner radius is 0.
inline Points star(double outer, double inner)
{
    Points vertices;
    const int count = inner > 0 ? 10 : 5;
    for (int i = 0; i < count; ++i) {
        const double angle = turn / 4 + (inner > 0 ? i * turn / 10 : i * 2 * turn / 5);
        const double radius = inner > 0 && i % 2 == 1 ? inner : outer;
        vertices.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return closed(vertices);
}

inline Points heart(double size)
{
    Points points;
    for (int i = 0; i <= 150; ++i) {
        const double t = turn * i / 150;
        points.push_back(
            {size * 16 * std::pow(std::sin(t), 3) / 32,
             size * (13 * std::cos(t) - 5 * std::cos(2 * t) - 2 * std::cos(3 * t) - std::cos(4 * t)) / 32});
    }
    return points;
}

inline Points turned(Points points, double angle)
{
    for (Point &p : points)
        p = {std::cos(angle) * p.x - std::sin(angle) * p.y, std::sin(angle) * p.x + std::cos(angle) * p.y};
    return points;
}

inline Points scaled(Points points, double x, double y)
{
    for (Point &p : points)
        p = {x * p.x, y * p.y};
    return points;
}

inline Points reversed(Points points)
{
    std::ranges::reverse(points);
    return points;
}

// Returns a closed stroke that begins elsewhere on its path.
inline Points startedAt(Points ring, double share)
{
    ring.pop_back();
    const auto shift = static_cast<std::ptrdiff_t>(share * static_cast<double>(ring.size()));
    std::rotate(ring.begin(), ring.begin() + shift, ring.end());
    return closed(ring);
}

// Returns 64 evenly spaced points, as the recognisers of closed strokes see them.
inline Points ring(const Points &outline)
{
    Points points = ShapeRecognizer::resample(outline, 65);
    points.pop_back();
    return points;
}

// Adds a slow tremble of the hand, at most `size` points in each direction.
inline Points wobbly(Points points, double size, Dice &dice)
{
    const double phase = between(0, turn, dice);
    const double pace = between(0.2, 0.4, dice);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double t = phase + pace * static_cast<double>(i);
        points[i].x += size * (0.7 * std::sin(t) + between(-0.3, 0.3, dice));
        points[i].y += size * (0.7 * std::cos(0.7 * t) + between(-0.3, 0.3, dice));
    }
    return points;
}

} // namespace Strokes
