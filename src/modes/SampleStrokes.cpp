#include "modes/SampleStrokes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double circle = 2 * std::numbers::pi;
constexpr double stride = 4;     // points between two places of the pointer
constexpr double tremor = 0.012; // of the radius

using Path = QList<QPointF>;

// Vertices in units of the radius, y downwards.
Path arc(double a, double b, double from, double sweep)
{
    constexpr int steps = 60;
    Path path;
    for (int i = 0; i <= steps; ++i) {
        const double angle = from + sweep * i / steps;
        path.append({a * std::cos(angle), b * std::sin(angle)});
    }
    return path;
}

Path star()
{
    Path path;
    for (int i = 0; i <= 10; ++i) {
        const double radius = i % 2 == 0 ? 1 : 0.4;
        const double angle = i * circle / 10 - circle / 4;
        path.append({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return path;
}

Path heart()
{
    constexpr int steps = 90;
    Path path;
    for (int i = 0; i <= steps; ++i) {
        const double t = circle * i / steps;
        const double height = 13 * std::cos(t) - 5 * std::cos(2 * t) - 2 * std::cos(3 * t) - std::cos(4 * t);
        path.append({std::pow(std::sin(t), 3), -height / 16});
    }
    return path;
}

struct Sample {
    const char *name;
    Path (*vertices)();
};

constexpr std::array<Sample, 12> samples{{
    {"linea",
     [] {
         return Path{{-1, 0.5}, {1, -0.5}};
     }},
    {"flecha",
     [] {
         return Path{{-1, 0.3}, {0.95, -0.1}, {0.5, -0.4}, {0.95, -0.1}, {0.58, 0.35}};
     }},
    {"visto",
     [] {
         return Path{{-0.9, 0}, {-0.35, 0.65}, {0.95, -0.8}};
     }},
    {"arco", [] { return arc(1, 1, circle * 0.55, circle * 0.4); }},
    {"circulo", [] { return arc(0.95, 0.95, 0.4, circle); }},
    {"elipse", [] { return arc(1, 0.58, -1, circle); }},
    {"estrella", star},
    {"triangulo",
     [] {
         return Path{{-1, 0.7}, {1, 0.7}, {-0.1, -0.85}, {-1, 0.7}};
     }},
    {"rectangulo",
     [] {
         return Path{{-1, 0.6}, {1, 0.6}, {1, -0.6}, {-1, -0.6}, {-1, 0.6}};
     }},
    {"rombo",
     [] {
         return Path{{0.62, 0}, {0, -0.95}, {-0.62, 0}, {0, 0.95}, {0.62, 0}};
     }},
    {"cuadrilatero",
     [] {
         return Path{{-1, 0.7}, {0.8, 0.7}, {0.97, -0.35}, {-0.2, -0.8}, {-1, 0.7}};
     }},
    {"corazon", heart},
}};

Path followed(const Path &vertices, QPointF middle, double radius)
{
    Path path{middle + vertices.first() * radius};
    for (qsizetype i = 1; i < vertices.size(); ++i) {
        const QPointF from = middle + vertices[i - 1] * radius;
        const QPointF way = middle + vertices[i] * radius - from;
        const int steps = std::max(1, static_cast<int>(std::hypot(way.x(), way.y()) / stride));
        for (int k = 1; k <= steps; ++k)
            path.append(from + way * k / steps);
    }
    return path;
}

Path shaken(Path path, double size)
{
    for (qsizetype i = 0; i < path.size(); ++i)
        path[i] += size * QPointF(std::sin(0.31 * double(i)), std::cos(0.23 * double(i)));
    return path;
}

} // namespace

namespace SampleStrokes {

QStringList names()
{
    QStringList list;
    for (const Sample &sample : samples)
        list.append(QString::fromLatin1(sample.name));
    return list;
}

QList<QPointF> stroke(const QString &name, QPointF middle, double radius)
{
    const auto *const found = std::ranges::find_if(
        samples, [&](const Sample &sample) { return name == QLatin1StringView(sample.name); });
    if (found == samples.end())
        return {};
    return shaken(followed(found->vertices(), middle, radius), std::max(tremor * radius, 0.5));
}

} // namespace SampleStrokes
