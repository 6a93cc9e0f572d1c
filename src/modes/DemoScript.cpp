#include "modes/DemoScript.h"

#include "base/Defaults.h"
#include "modes/Console.h"
#include "modes/SampleStrokes.h"
#include "modes/Stage.h"
#include "modes/Strip.h"
#include "toolbar/Bar.h"
#include "toolbar/BarButton.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using DemoScript::Camera;
using DemoScript::Scene;

namespace {

constexpr int knowsTheGesture = 99;  // no tip lies over the marks
constexpr qsizetype colorButton = 8; // among the buttons of the bar, after the tools

void select(Stage &stage)
{
    stage.hand().drag({stage.at(0.083, 0.187), stage.at(0.3, 0.4), stage.at(0.54, 0.676)});
}

// From one place to another with the tool in hand.
void mark(Stage &stage, Tool tool, QPointF from, QPointF to)
{
    stage.view().toggleTool(tool);
    stage.hand().drag({from, (from + to) / 2, to});
    stage.view().toggleTool(tool);
}

QList<QPointF> wave(Stage &stage, double x, double y)
{
    constexpr int steps = 60;
    QList<QPointF> path;
    for (int i = 0; i <= steps; ++i)
        path.append(stage.at(x + 0.05 * i / steps, y + 0.03 * std::sin(std::numbers::pi * i / 15)));
    return path;
}

// The hand's stroke with the button still down.
bool heldStill(Stage &stage, const QList<QPointF> &stroke)
{
    stage.hand().stroke(stroke);
    return Stage::wait([&] { return stage.view().state().current->original.has_value(); });
}

void beginText(Stage &stage)
{
    stage.view().toggleTool(Tool::text);
    stage.hand().click(stage.at(0.42, 0.237));
}

void clickButton(Stage &stage, qsizetype which)
{
    auto *button = stage.view().findChild<Bar *>()->buttons().at(which);
    Hand(*button).click(QRectF(button->rect()).center());
}

QList<QPointF> sampleStroke(Stage &stage, const QString &shape)
{
    const double room = std::min(stage.view().width(), stage.view().height());
    return SampleStrokes::stroke(shape, stage.at(0.31, 0.43), 0.2 * room);
}

bool adjust(Stage &stage)
{
    stage.hand().drag({stage.at(0.3, 0.4), stage.at(0.27, 0.34)});
    stage.hand().drag({stage.at(0.51, 0.616), stage.at(0.61, 0.75)});
    return true;
}

bool allMarks(Stage &stage)
{
    mark(stage, Tool::arrow, stage.at(0.437, 0.25), stage.at(0.381, 0.505));
    mark(stage, Tool::ellipse, stage.at(0.344, 0.475), stage.at(0.406, 0.575));
    mark(stage, Tool::marker, stage.at(0.105, 0.2325), stage.at(0.281, 0.2325));
    mark(stage, Tool::pixelate, stage.at(0.097, 0.25), stage.at(0.313, 0.2775));
    mark(stage, Tool::rectangle, stage.at(0.461, 0.3), stage.at(0.523, 0.375));
    mark(stage, Tool::line, stage.at(0.125, 0.5125), stage.at(0.1875, 0.375));
    stage.view().toggleTool(Tool::pencil);
    stage.hand().drag(wave(stage, 0.219, 0.3625));
    stage.view().toggleTool(Tool::pencil);
    beginText(stage);
    stage.hand().type(QStringLiteral("Bridge closed"));
    stage.hand().key(Qt::Key_Escape);
    stage.view().toggleTool(Tool::text);
    return stage.view().state().annotations.size() == 8;
}

// The arrow is taken by its shaft, and the key stays down.
bool correctArrow(Stage &stage)
{
    (void)allMarks(stage);
    stage.hand().hold(Qt::AltModifier);
    stage.hand().drag({stage.at(0.409, 0.3775), stage.at(0.42, 0.4), stage.at(0.44, 0.43)});
    return stage.view().state().corrections.size() == 1;
}

// Returns a part of what the editor shows; the rectangle is given as parts of its width
// and height.
QImage cut(const QImage &picture, const QRectF &part)
{
    return picture.copy(QRectF(part.x() * picture.width(), part.y() * picture.height(),
                               part.width() * picture.width(), part.height() * picture.height())
                            .toRect());
}

// What the first arrow key makes, and what it becomes with more of them.
bool regionByKeys(const QImage &screen, double scale, const Camera &camera)
{
    const QRectF part(0.49, 0.3, 0.5, 0.68);
    Stage stage(screen, scale);
    stage.hand().hover(stage.at(0.547, 0.375));
    stage.hand().key(Qt::Key_Right);
    QList<QImage> film{cut(stage.picture(), part)};
    for (int i = 0; i < 48; ++i)
        stage.hand().key(Qt::ALT | Qt::SHIFT | Qt::Key_Right);
    for (int i = 0; i < 36; ++i)
        stage.hand().key(Qt::ALT | Qt::SHIFT | Qt::Key_Down);
    film.append(cut(stage.picture(), part));
    camera(strip(film));
    return stage.view().state().selection && stage.view().state().selection->width() > 200;
}

// A screen before and after its last region is brought back.
bool lastRegion(const QImage &screen, double scale, const Camera &camera)
{
    const QRectF part(0.04, 0.08, 0.54, 0.68);
    {
        Stage before(screen, scale);
        select(before);
    }
    Stage stage(screen, scale);
    QList<QImage> film{cut(stage.picture(), part)};
    stage.hand().key(Qt::Key_Space);
    film.append(cut(stage.picture(), part));
    camera(strip(film));
    return stage.view().state().selection.has_value();
}

// The raw stroke, on its way, and the shape, next to each other.
bool crossFade(Stage &stage, const Camera &camera)
{
    constexpr int frames = 6;
    constexpr int fade = 240; // milliseconds, a little less than it lasts
    stage.setMoving(true);
    stage.view().toggleTool(Tool::pencil);
    QList<QImage> film;
    const QRectF part(0.16, 0.19, 0.3, 0.48);
    const auto shoot = [&] { film.append(cut(stage.pictureNow(), part)); };
    stage.hand().stroke(sampleStroke(stage, QStringLiteral("corazon")));
    shoot();
    if (!Stage::wait([&] { return stage.view().state().current->original.has_value(); }))
        return false;
    while (film.size() < frames) {
        shoot();
        Stage::linger(fade / (frames - 2));
    }
    stage.hand().release();
    camera(strip(film));
    return true;
}

bool recognised(Stage &stage, const QString &shape)
{
    stage.view().toggleTool(Tool::pencil);
    if (!heldStill(stage, sampleStroke(stage, shape)))
        return false;
    stage.hand().release();
    Console::say(QStringLiteral("figura ") + shape);
    return true;
}

// A scene that begins with a selection and ends with a picture of the screen.
template <typename Action>
Scene scene(const char *name, bool texts, Action action)
{
    return {QString::fromLatin1(name), texts,
            [action](const QImage &screen, double scale, const Camera &camera) {
                Defaults::setValue(Defaults::shapeTipKey, knowsTheGesture);
                Stage stage(screen, scale);
                select(stage);
                const bool came = action(stage);
                camera(stage.picture());
                return came;
            }};
}

Scene toolScene(const char *name, Tool tool)
{
    return scene(name, false, [tool](Stage &stage) {
        stage.view().toggleTool(tool);
        stage.hand().drag({stage.at(0.15, 0.3), stage.at(0.3, 0.42), stage.at(0.45, 0.55)});
        return stage.view().state().annotations.size() == 1;
    });
}

Scene shapeScene(const QString &shape)
{
    return scene(shape.toLatin1().constData(), false,
                 [shape](Stage &stage) { return recognised(stage, shape); });
}

std::vector<Scene> editing()
{
    return {
        {QStringLiteral("hint"), true,
         [](const QImage &screen, double scale, const Camera &camera) {
             camera(Stage(screen, scale).picture());
             return true;
         }},
        scene("selection", true, [](Stage &) { return true; }),
        scene("adjusted", false, adjust),
        toolScene("pencil", Tool::pencil),
        toolScene("line", Tool::line),
        toolScene("arrow", Tool::arrow),
        toolScene("rectangle", Tool::rectangle),
        toolScene("ellipse", Tool::ellipse),
        toolScene("highlighter", Tool::marker),
        toolScene("pixelate", Tool::pixelate),
        scene("text", true,
              [](Stage &stage) {
                  beginText(stage);
                  return true;
              }),
        scene("marks", false, allMarks),
    };
}

std::vector<Scene> helping()
{
    return {
        scene("palette", true,
              [](Stage &stage) {
                  clickButton(stage, colorButton);
                  return true;
              }),
        scene("eyedropper", false,
              [](Stage &stage) {
                  stage.view().startPicking();
                  stage.hand().hover(stage.at(0.3755, 0.53));
                  return true;
              }),
        scene("width", false,
              [](Stage &stage) {
                  stage.view().toggleTool(Tool::arrow);
                  stage.hand().turnWheel(stage.at(0.3, 0.4), 5);
                  return true;
              }),
        scene("tip", true,
              [](Stage &stage) {
                  Defaults::setValue(Defaults::shapeTipKey, 0);
                  stage.view().toggleTool(Tool::pencil);
                  stage.hand().drag(wave(stage, 0.25, 0.4));
                  return true;
              }),
        scene("copied", true,
              [](Stage &stage) {
                  (void)allMarks(stage);
                  stage.view().copyImage();
                  return true;
              }),
    };
}

// Scenes whose picture is not the screen at the end.
std::vector<Scene> results()
{
    return {
        {QStringLiteral("picture"), false,
         [](const QImage &screen, double scale, const Camera &camera) {
             Stage stage(screen, scale);
             select(stage);
             (void)allMarks(stage);
             const auto copied = stage.view().renderSelection();
             camera(copied.value_or(QImage()));
             return copied.has_value();
         }},
        {QStringLiteral("fade"), false,
         [](const QImage &screen, double scale, const Camera &camera) {
             Stage stage(screen, scale);
             select(stage);
             return crossFade(stage, camera);
         }},
        {QStringLiteral("edge"), false,
         [](const QImage &screen, double scale, const Camera &camera) {
             Stage stage(screen, scale);
             stage.hand().stroke({stage.at(0.547, 0.375), stage.at(0.8, 0.6), stage.at(0.9375, 0.85)});
             stage.hand().hold(Qt::Key_Control);
             camera(stage.picture());
             stage.hand().release();
             return true;
         }},
    };
}

} // namespace

namespace DemoScript {

const std::vector<Scene> &scenes()
{
    static const std::vector<Scene> all = [] {
        std::vector<Scene> list = editing();
        std::ranges::move(helping(), std::back_inserter(list));
        std::ranges::move(results(), std::back_inserter(list));
        list.push_back(scene("corrected", false, correctArrow));
        list.push_back({QStringLiteral("keys"), false, regionByKeys});
        list.push_back({QStringLiteral("last"), false, lastRegion});
        for (const QString &shape : SampleStrokes::names())
            list.push_back(shapeScene(shape));
        return list;
    }();
    return all;
}

QStringList names()
{
    QStringList list;
    for (const Scene &each : scenes())
        list.append(each.name);
    return list;
}

} // namespace DemoScript
