#include "modes/HaloTestMode.h"

#include "base/Raster.h"
#include "halo/HaloView.h"
#include "modes/Album.h"
#include "modes/Console.h"
#include "modes/Inputs.h"
#include "modes/Stage.h"
#include "modes/Strip.h"
#include "overlay/canvas/Backdrop.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <vector>

namespace {

constexpr int stillWidth = 320; // pixels of one picture in a film strip

// A screen that shows the picture with its middle selected, and nothing else.
class Glow {
public:
    explicit Glow(const QImage &screen)
        : m_shot{nullptr, screen, 1, QSizeF(screen.size())}
        , m_backdrop(m_shot)
        , m_canvas(screen.size(), QImage::Format_RGB32)
        , m_halo(m_shot.pointSize, 1, [] { return false; })
    {
        const QSizeF size = m_shot.pointSize;
        m_selection = {size.width() / 4, size.height() / 4, size.width() / 2, size.height() / 2};
        m_halo.onFrame = [this](const QRegion &area) { paint(area); };
        paint(m_canvas.rect());
        m_halo.update(m_selection);
    }

    [[nodiscard]] HaloView &halo() { return m_halo; }

    // So many pictures, at equal distances in time; the last at the end.
    [[nodiscard]] QImage film(int pictures, int milliseconds)
    {
        m_times.clear();
        QList<QImage> stills;
        for (int i = 0; i < pictures; ++i) {
            Stage::linger(milliseconds / pictures);
            stills.append(m_canvas.scaledToWidth(stillWidth, Qt::SmoothTransformation));
        }
        return strip(stills);
    }

    // Of the frames of the last film.
    [[nodiscard]] QString times() const
    {
        if (m_times.empty())
            return QStringLiteral("no frames");
        std::vector<double> sorted = m_times;
        std::ranges::sort(sorted);
        return QStringLiteral("%1 frames, median %2 ms, slowest %3 ms")
            .arg(sorted.size())
            .arg(sorted[sorted.size() / 2], 0, 'f', 2)
            .arg(sorted.back(), 0, 'f', 2);
    }

private:
    void paint(const QRegion &area)
    {
        QElapsedTimer since;
        since.start();
        const ViewSpace space(m_shot.pointSize, m_shot.scale);
        m_backdrop.fill(Raster(m_canvas), space.toNearestPixels(m_selection), space.pixelsOf(area));
        QPainter painter(&m_canvas);
        m_halo.draw(painter, area);
        m_times.push_back(double(since.nsecsElapsed()) * 1e-6);
    }

    const ScreenShot m_shot;
    Backdrop m_backdrop;
    QImage m_canvas;
    QRectF m_selection;
    std::vector<double> m_times; // milliseconds
    HaloView m_halo;
};

} // namespace

namespace HaloTestMode {

int run(const QString &picture, const QString &folder)
{
    const auto screen = Inputs::screenFrom(picture);
    if (!screen || !Inputs::folderReady(folder))
        return EXIT_FAILURE;
    Album album(folder);
    Glow glow(*screen);
    const auto shoot = [&](const QString &name, int pictures, int milliseconds) {
        const QImage film = glow.film(pictures, milliseconds);
        album.add(name, film);
        Console::say(name + QStringLiteral(": ") + glow.times());
    };
    shoot(QStringLiteral("01-turn"), 8, 7000);
    glow.halo().setPaused(true);
    Stage::linger(100); // the frame that was under way
    shoot(QStringLiteral("02-pause"), 3, 600);
    glow.halo().setPaused(false);
    glow.halo().pulse(Pulse::gentle);
    shoot(QStringLiteral("03-gentle-pulse"), 8, 1000);
    glow.halo().pulse(Pulse::strong);
    shoot(QStringLiteral("04-strong-pulse"), 8, 600);
    return album.complete() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace HaloTestMode
