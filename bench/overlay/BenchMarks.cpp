// What marks cost on a whole 4K screen, beside copying the screen's bytes: a
// mosaic of all of it, made anew and repainted, and a stroke of many points.
#include "base/Raster.h"
#include "base/ViewSpace.h"
#include "marks/Annotation.h"
#include "overlay/canvas/MarksLayer.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <cstring>

namespace {

constexpr double scale = 2;
const QSize pixels(3840, 2160);
const QRectF view(0, 0, 1920, 1080);

QImage screen()
{
    QImage image(pixels, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x & 0xff, y & 0xff, (x ^ y) & 0xff));
    return image;
}

void draw(const Annotation &mark, QImage &onto)
{
    QPainter painter(&onto);
    painter.setTransform(ViewSpace(view.size()).upwards(), true);
    mark.draw(painter, view);
}

void pixelate(benchmark::State &state, bool anew)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    Annotation::background = screen();
    Annotation::backgroundScale = scale;
    Annotation::viewHeight = view.height();
    const ViewSpace space(view.size(), scale);
    const std::vector marks{
        std::make_shared<const Annotation>(Tool::pixelate, Qt::red, 3, QList<QPointF>{{0, 0}, {1920, 1080}})};
    MarksLayer layer(space);
    layer.follow(marks);
    for (auto _ : state) {
        if (anew) {
            layer.follow({});
            layer.follow(marks);
        }
        layer.draw(Raster(canvas), canvas.rect());
    }
}

void stroke(benchmark::State &state, Tool tool)
{
    QImage canvas(pixels, QImage::Format_RGB32);
    canvas.setDevicePixelRatio(scale);
    QList<QPointF> points;
    for (int i = 0; i < 2000; ++i)
        points.append({960 + 800 * std::sin(i * 0.0171), 540 + 400 * std::cos(i * 0.0093)});
    const Annotation mark(tool, Qt::red, 3, points);
    for (auto _ : state)
        draw(mark, canvas);
}

void copy(benchmark::State &state)
{
    const QImage from = screen();
    QImage to(pixels, QImage::Format_RGB32);
    for (auto _ : state) {
        std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes()));
        benchmark::ClobberMemory();
    }
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (auto *bench : {benchmark::RegisterBenchmark("memcpy", copy),
                        benchmark::RegisterBenchmark("pixelate anew", pixelate, true),
                        benchmark::RegisterBenchmark("pixelate again", pixelate, false),
                        benchmark::RegisterBenchmark("pencil", stroke, Tool::pencil),
                        benchmark::RegisterBenchmark("marker", stroke, Tool::marker)})
        bench->UseRealTime()->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    Annotation::background = {}; // before Qt goes
    return EXIT_SUCCESS;
}
