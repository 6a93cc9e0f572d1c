#pragma once

#include "overlay/OverlayView.h"

#include "fakes/FakeDesktop.h"
#include "fakes/RecordingSession.h"
#include "support/Mouse.h"
#include "support/Pictures.h"
#include "toolbar/Bar.h"

#include <QBackingStore>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>

#include <cstring>

// Returns whether two colours are almost equal. Qt rounds a translucent fill in
// more than one way.
inline bool alike(QRgb a, QRgb b)
{
    const auto near = [](int x, int y) { return std::abs(x - y) <= 2; };
    return near(qRed(a), qRed(b)) && near(qGreen(a), qGreen(b)) && near(qBlue(a), qBlue(b));
}

inline int differing(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return -1;
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        if (a.format() == b.format()
            && std::memcmp(a.constScanLine(y), b.constScanLine(y), size_t(a.width()) * 4) == 0)
            continue;
        for (int x = 0; x < a.width(); ++x)
            count += !alike(a.pixel(x, y), b.pixel(x, y));
    }
    return count;
}

// Adds a row for every screen of the offscreen platform, named by its scale.
inline void scales()
{
    QTest::addColumn<QString>("screen");
    QTest::newRow("1x") << "B";
    QTest::newRow("1.25x") << "C";
    QTest::newRow("2x") << "A";
}

// Opens the editor on one of the screens of the offscreen platform, with a mouse.
struct Editor {
    explicit Editor(const QString &screenName = "B")
    {
        for (QScreen *candidate : QGuiApplication::screens())
            if (candidate->name() == screenName)
                screen = candidate;
        desktop.stillness = true; // or pictures would depend on the moment
        shot = patternShot(screen->size(), screen->devicePixelRatio(), screen);
        view = std::make_unique<OverlayView>(shot, session, desktop);
        view->setScreen(screen);
        view->setGeometry(screen->geometry());
        view->show();
        mouse.emplace(*view, shot.pointSize.height());
    }

    [[nodiscard]] std::optional<QRectF> selection() const { return view->state().selection; }

    // Return the screen as it is, and as a complete repaint would make it.
    [[nodiscard]] QImage shown() const
    {
        while (!view->halo().resting())
            QTest::qWait(1);
        QTest::qWait(0);
        return pixels() ? pixels()->convertToFormat(QImage::Format_RGB32).copy() : QImage();
    }
    [[nodiscard]] QImage repainted() const
    {
        view->update();
        return shown();
    }

    // Returns the image without the bar, whose buttons fade on their own.
    [[nodiscard]] QImage withoutBar(QImage image) const
    {
        for (const auto *bar : view->findChildren<Bar *>())
            QPainter(&image).fillRect(bar->geometry().adjusted(-2, -2, 2, 2), Qt::black);
        return image;
    }

    // Returns how many pixels on the screen a complete repaint would change.
    [[nodiscard]] int stale() const
    {
        const QImage now = shown();
        return differing(withoutBar(now), withoutBar(repainted()));
    }

    // Paints over a pixel of the screen, at a view point, and tells whether that still shows.
    void mark(QPointF at) const { pixels()->setPixel(pixelAt(at), marking); }
    [[nodiscard]] bool isMarked(QPointF at) const { return shown().pixel(pixelAt(at)) == marking; }

    void draw(Tool tool, QPointF from, QPointF to, Qt::KeyboardModifiers modifiers = {})
    {
        view->toggleTool(tool);
        mouse->drag(from, to, modifiers);
        view->toggleTool(tool);
    }

    void turnWheel(QPointF at, int eighths)
    {
        const QPointF down(at.x(), shot.pointSize.height() - at.y());
        QWheelEvent event(down, down, {}, {0, eighths}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(view.get(), &event);
    }

    [[nodiscard]] QImage *pixels() const
    {
        return dynamic_cast<QImage *>(view->backingStore()->paintDevice());
    }
    [[nodiscard]] QPoint pixelAt(QPointF at) const
    {
        return ViewSpace(shot.pointSize, shot.scale).pixelAt(at);
    }

    static constexpr QRgb marking = 0xffff00ff;

    QScreen *screen = nullptr;
    ScreenShot shot;
    RecordingSession session;
    FakeDesktop desktop;
    std::unique_ptr<OverlayView> view;
    std::optional<Mouse> mouse;
};
