// What single steps in the editor cost on a 4K screen at two pixels a point,
// from the event to the painted window: moving a selection that is full of
// marks, repainting beside it, letting go of a long stroke, dragging a mosaic,
// carrying a finished mark.
// Prints one row each: name, median and 95th percentile in milliseconds.
#include "marks/Kinds.h"
#include "overlay/OverlayView.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingSession.h"
#include "support/Mouse.h"
#include "support/Pictures.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <optional>
#include <vector>

namespace {

const QSizeF points(1920, 1080);
const QRectF selected(100, 100, 1500, 750); // points
constexpr double scale = 2;

double milliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

struct Editor {
    Editor() : view(shot, session, desktop)
    {
        desktop.stillness = true; // the glow has rows of its own
        view.setGeometry(QRect(QPoint(0, 0), points.toSize()));
        view.show();
        settle(400);
        mouse.drag(selected.topLeft(), selected.bottomRight());
        settle(100);
    }

    static void settle(int atLeast)
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < atLeast)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }

    // Until the window has been painted.
    static double timed(const std::function<void()> &step)
    {
        const double before = milliseconds();
        step();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        return milliseconds() - before;
    }

    void draw(Tool tool, const QList<QPointF> &stroke)
    {
        view.toggleTool(tool);
        mouse.press(stroke.first());
        for (const QPointF at : stroke.mid(1))
            mouse.move(at);
        mouse.release(stroke.last());
        view.toggleTool(tool);
        QCoreApplication::processEvents();
    }

    ScreenShot shot = patternShot(points, scale, QGuiApplication::primaryScreen());
    RecordingSession session;
    FakeDesktop desktop;
    OverlayView view;
    Mouse mouse{view, points.height()};
};

// Marks of the kinds in turn, all over the selection.
void fill(Editor &editor, int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    for (int i = 0; i < count; ++i) {
        const Tool tool = kinds.begin()[std::size_t(i) % kinds.size()];
        const QPointF from(110 + (i * 131) % 1300, 110 + (i * 71) % 620);
        QList<QPointF> stroke{from, from + QPointF(150, 90)};
        for (int step = 1; isFreehand(tool) && step < strokePoints; ++step)
            stroke.append(from
                          + QPointF(75 + 75 * std::sin(step * 0.0041), 45 + 45 * std::cos(step * 0.0023)));
        editor.draw(tool, stroke);
    }
}

std::vector<double> move(int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    Editor editor;
    fill(editor, count, kinds, strokePoints);
    std::vector<double> times;
    editor.mouse.press({103 + 47, 103 + 47});
    for (int i = 1; i <= 80; ++i) {
        times.push_back(Editor::timed([&] { editor.mouse.move({150.0 + 3 * i, 150.0 + i * 1.5}); }));
        Editor::settle(8);
    }
    editor.mouse.release({390, 270});
    return times;
}

constexpr std::initializer_list<Tool> everyKind{Tool::pencil,  Tool::line,   Tool::arrow,   Tool::rectangle,
                                                Tool::ellipse, Tool::marker, Tool::pixelate};

std::vector<double> spot(int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    Editor editor;
    fill(editor, count, kinds, strokePoints);
    std::vector<double> times;
    for (int i = 0; i < 40; ++i) {
        times.push_back(Editor::timed([&] { editor.view.update(1700, 1000, 16, 16); }));
        Editor::settle(2);
    }
    return times;
}

std::vector<double> release(Tool tool)
{
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        Editor editor;
        editor.view.toggleTool(tool);
        editor.mouse.press({850, 475});
        QPointF at;
        for (int i = 0; i < 20'000; ++i) {
            at = {850 + 700 * std::sin(i * 0.0171), 475 + 350 * std::cos(i * 0.0093)};
            editor.mouse.move(at);
            if (i % 50 == 0)
                QCoreApplication::processEvents();
        }
        Editor::settle(50);
        times.push_back(Editor::timed([&] { editor.mouse.release(at); }));
    }
    return times;
}

std::vector<double> mosaic()
{
    Editor editor;
    editor.view.selectAll();
    editor.view.toggleTool(Tool::pixelate);
    Editor::settle(100);
    editor.mouse.press({20, 20});
    std::vector<double> times;
    for (int i = 0; i < 40; ++i) {
        times.push_back(Editor::timed([&] { editor.mouse.move({1500.0 + i * 9, 850.0 + i * 5}); }));
        Editor::settle(2);
    }
    editor.mouse.release({1850, 1040});
    return times;
}

// A mark that lies below all others, taken hold of where no other is.
struct Lowest {
    Lowest(int count, std::initializer_list<Tool> kinds, int strokePoints)
    {
        editor.draw(Tool::rectangle, {from, from + QPointF(1200, 600)});
        fill(editor, count, kinds, strokePoints);
        while (editor.view.state().markAt(from) != std::optional<std::size_t>(0))
            from += QPointF(1, 0);
        editor.mouse.hover(from, Qt::AltModifier);
        Editor::settle(20);
    }

    QPointF from{130, 130};
    Editor editor;
};

std::vector<double> carry(int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    Lowest mark(count, kinds, strokePoints);
    Editor &editor = mark.editor;
    editor.mouse.press(mark.from, Qt::AltModifier);
    std::vector<double> times;
    for (int i = 1; i <= 80; ++i) {
        times.push_back(
            Editor::timed([&] { editor.mouse.move(mark.from + QPointF(3 * i, 1.5 * i), Qt::AltModifier); }));
        Editor::settle(2);
    }
    editor.mouse.release(mark.from);
    return times;
}

// Taking it up and letting go of it, which lets others show again.
std::vector<double> lift(int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    Lowest mark(count, kinds, strokePoints);
    Editor &editor = mark.editor;
    std::vector<double> times;
    for (int i = 0; i < 20; ++i) {
        times.push_back(Editor::timed([&] { editor.mouse.press(mark.from, Qt::AltModifier); }));
        Editor::settle(2);
        times.push_back(Editor::timed([&] { editor.mouse.release(mark.from); }));
        Editor::settle(2);
    }
    return times;
}

std::vector<double> look(int count, std::initializer_list<Tool> kinds, int strokePoints)
{
    Lowest mark(count, kinds, strokePoints);
    std::vector<double> times;
    for (int i = 0; i < 80; ++i) {
        times.push_back(Editor::timed(
            [&] { mark.editor.mouse.hover(mark.from + QPointF(15 * i, 7 * i), Qt::AltModifier); }));
        Editor::settle(2);
    }
    return times;
}

// With the pauses of the rows below: a memory that is left alone for a moment is copied
// at half the speed and less.
std::vector<double> copy()
{
    const QImage from = pattern({3840, 2160});
    QImage to(from.size(), from.format());
    std::vector<double> times;
    for (int i = 0; i < 80; ++i) {
        times.push_back(Editor::timed(
            [&] { std::memcpy(to.bits(), from.constBits(), std::size_t(from.sizeInBytes())); }));
        Editor::settle(8);
    }
    return times;
}

// Runs the rows whose name holds the word given, or all.
void report(const char *name, const std::function<std::vector<double>()> &measure)
{
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1 && !QString::fromUtf8(name).contains(arguments.at(1)))
        return;
    std::vector<double> times = measure();
    std::ranges::sort(times);
    std::printf("%s\t%.2f\t%.2f\n", name, times[times.size() / 2], times[times.size() * 95 / 100]);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", "2");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    report("memcpy", [] { return copy(); });
    report("move a selection with 5 marks", [] { return move(5, everyKind, 100); });
    report("move a selection with 50 marks", [] { return move(50, everyKind, 100); });
    report("move a selection with 200 marks", [] { return move(200, everyKind, 100); });
    report("move a selection with 200 strokes of 3,000 points",
           [] { return move(200, {Tool::pencil}, 3000); });
    report("a spot beside 200 marks", [] { return spot(200, everyKind, 100); });
    report("a spot beside 200 strokes of 3,000 points", [] { return spot(200, {Tool::pencil}, 3000); });
    report("let go of a pencil stroke of 20,000 points", [] { return release(Tool::pencil); });
    report("let go of a highlighter stroke of 20,000 points", [] { return release(Tool::marker); });
    report("step of a mosaic over most of the screen", [] { return mosaic(); });
    report("carry a rectangle below 200 marks", [] { return carry(200, everyKind, 100); });
    report("carry a rectangle below 200 strokes of 3,000 points",
           [] { return carry(200, {Tool::pencil}, 3000); });
    report("take up or leave a rectangle below 200 marks", [] { return lift(200, everyKind, 100); });
    report("take up or leave a rectangle below 200 strokes of 3,000 points",
           [] { return lift(200, {Tool::pencil}, 3000); });
    report("look for a mark among 200 strokes of 3,000 points",
           [] { return look(200, {Tool::pencil}, 3000); });
    return EXIT_SUCCESS;
}
