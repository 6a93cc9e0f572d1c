#include "shapes/ShapeRecognizer.h"
#include "support/Strokes.h"

#include <benchmark/benchmark.h>

using namespace Strokes;

namespace {

constexpr std::size_t strokePoints = 2000;
constexpr double tremble = 1.5; // points

// Points that lie close enough to be thinned out would not be work.
Points drawn(const Points &outline)
{
    Dice dice(2);
    const Points big = scaled(outline, 10, 10);
    return wobbly(ShapeRecognizer::resample(big, strokePoints), tremble, dice);
}

Points spiral()
{
    Points points;
    for (int i = 0; i <= 400; ++i)
        points.push_back({(20 + 0.2 * i) * std::cos(0.05 * i), (20 + 0.2 * i) * std::sin(0.05 * i)});
    return points;
}

struct Stroke {
    const char *name; // of the shape, or why there is none
    Points points;
};

const Stroke strokes[] = {
    {"linea", {{0, 0}, {200, 3}}},
    {"flecha", {{0, 0}, {200, 0}, {170, 20}}},
    {"visto", {{0, 40}, {30, 0}, {110, 90}}},
    {"arco", ellipse(100, 100, 0.3, 2.5)},
    {"circulo", ellipse(100, 100)},
    {"elipse", ellipse(100, 60)},
    {"estrella", star(100, 40)},
    {"estrella", star(100, 0)},
    {"triangulo", closed({{0, 0}, {150, 0}, {60, 120}})},
    {"rectangulo", closed({{0, 0}, {150, 0}, {150, 90}, {0, 90}})},
    {"rombo", closed({{0, -90}, {60, 0}, {0, 90}, {-60, 0}})},
    {"cuadrilatero", closed({{0, 0}, {130, 0}, {142, 69}, {58, 100}})},
    {"corazon", heart(150)},
    {"open, rejected", {{0, 0}, {60, 90}, {120, 0}, {180, 90}, {240, 0}, {300, 90}}},
    {"spiral, rejected", spiral()},
    {"crescent, rejected", closed({{0, 0}, {80, -30}, {150, 30}, {160, 110}, {130, 50}, {70, 20}})},
    {"bow tie, rejected", closed({{0, 0}, {100, 100}, {100, 0}, {0, 100}})},
};

void recognise(benchmark::State &state, const Stroke &stroke)
{
    const Points points = drawn(stroke.points);
    const auto result = ShapeRecognizer::recognize(points, true);
    state.SetLabel(result ? result->name : "-");
    for (auto _ : state)
        benchmark::DoNotOptimize(ShapeRecognizer::recognize(points, true));
}

} // namespace

int main(int argc, char **argv)
{
    for (const Stroke &stroke : strokes)
        benchmark::RegisterBenchmark(stroke.name, [&stroke](benchmark::State &state) {
            recognise(state, stroke);
        })->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
