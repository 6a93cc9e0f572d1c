#include "base/Bands.h"

#include "base/Raster.h"

#include <QBackingStore>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <optional>
#include <semaphore>
#include <vector>

namespace {

constexpr int bandHeight = 64; // device pixels
// Device pixels; below, waking a thread costs more than it saves.
constexpr int largeToFill = 500'000;
constexpr int largeToBlend = 200'000;

constexpr int mostThreads = 4; // more only wait for the memory

// In one pass over the rectangles, which a region keeps from the top down: a region of
// small cells has hundreds.
std::vector<QRegion> bandsOf(const QRegion &region)
{
    const QRect all = region.boundingRect();
    std::vector<std::vector<QRect>> cut(std::size_t((all.height() + bandHeight - 1) / bandHeight));
    for (const QRect &rect : region)
        for (int band = (rect.top() - all.top()) / bandHeight;
             band <= (rect.bottom() - all.top()) / bandHeight; ++band)
            cut[std::size_t(band)].push_back(
                rect & QRect(rect.left(), all.top() + band * bandHeight, rect.width(), bandHeight));
    std::vector<QRegion> bands;
    for (const std::vector<QRect> &rects : cut)
        if (!rects.empty())
            bands.emplace_back().setRects(rects.data(), static_cast<int>(rects.size()));
    return bands;
}

// The picture in memory that the painter paints on, if it is one.
const QImage *pictureBehind(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine();
    const bool isPicture = engine && engine->type() == QPaintEngine::Raster && engine->paintDevice()
                           && engine->paintDevice()->devType() == QInternal::Image;
    return isPicture ? static_cast<const QImage *>(engine->paintDevice()) : nullptr;
}

qint64 areaOf(const QRegion &region)
{
    qint64 area = 0;
    for (const QRect &rect : region)
        area += qint64(rect.width()) * rect.height();
    return area;
}

// A picture that several threads write to at once, each its own part.
struct Shared {
    explicit Shared(const QImage &picture)
        : bits(const_cast<uchar *>(picture.constBits())) // bits() might make it a copy
        , size(picture.size())
        , bytesPerLine(picture.bytesPerLine())
        , format(picture.format())
    {}

    uchar *const bits;
    const QSize size;
    const qsizetype bytesPerLine;
    const QImage::Format format;
};

// Has several threads do the same work at once. Each takes the next band that is left,
// so whoever is held up holds nobody else up.
class Crew {
public:
    explicit Crew(const std::vector<QRegion> &bands) : m_bands(bands) {}

    // Calls work in every thread, which is to go on until there is no next band.
    void work(const std::function<void()> &work)
    {
        const int wanted = std::min(QThread::idealThreadCount(), mostThreads) - 1;
        int others = 0;
        while (others < wanted && QThreadPool::globalInstance()->tryStart([this, &work] {
            work();
            m_ended.release();
        }))
            ++others;
        work();
        for (; others > 0; --others)
            m_ended.acquire();
    }

    const QRegion *next()
    {
        const std::size_t i = m_next++;
        return i < m_bands.size() ? &m_bands[i] : nullptr;
    }

private:
    const std::vector<QRegion> &m_bands;
    std::atomic<std::size_t> m_next = 0;
    std::counting_semaphore<mostThreads> m_ended{0};
};

// Where the picture's upper left corner lies in the painter's space, if both count in
// the same pixels.
std::optional<QPoint> cornerOf(const QPainter &painter, QSize picture)
{
    constexpr double nearly = 1e-3; // over the whole picture
    const QTransform toPixels = painter.deviceTransform();
    const QPointF moved(toPixels.dx(), toPixels.dy());
    const QPoint whole = moved.toPoint();
    const double off = std::abs(toPixels.m11() - 1) * picture.width()
                       + std::abs(toPixels.m22() - 1) * picture.height() + (moved - whole).manhattanLength();
    return toPixels.type() <= QTransform::TxScale && off < nearly ? std::optional(-whole) : std::nullopt;
}

// The part of the picture that is being painted, which at a fractional scale ends
// within what the widget calls exposed.
QRegion clipOf(const QPainter &painter, QSize picture)
{
    const QRegion clip = painter.paintEngine()->systemClip();
    return clip.isEmpty() ? QRect({}, picture) : clip;
}

bool hasColours(const QImage &picture)
{
    return picture.format() == QImage::Format_RGB32
           || picture.format() == QImage::Format_ARGB32_Premultiplied;
}

// The pixels behind a painter that counts as they do, and which of them it may change.
struct Target {
    static std::optional<Target> behind(const QPainter &painter)
    {
        const QImage *picture = pictureBehind(painter);
        const auto corner = picture ? cornerOf(painter, picture->size()) : std::nullopt;
        if (!corner || !hasColours(*picture))
            return std::nullopt;
        const Shared shared(*picture);
        const QRect all(*corner, shared.size);
        return Target{shared, Raster(shared.bits, shared.bytesPerLine, all),
                      clipOf(painter, shared.size).translated(*corner) & all};
    }

    Shared picture;
    Raster raster;
    QRegion seen;
};

void fillThere(const Target &target, const QRegion &exposed, const Bands::Fill &fill, int largeArea)
{
    const QRegion seen = exposed & target.seen;
    const std::vector<QRegion> bands = bandsOf(seen);
    if (areaOf(seen) <= largeArea) {
        for (const QRegion &band : bands)
            fill(target.raster, band);
        return;
    }
    Crew crew(bands);
    crew.work([&] {
        while (const QRegion *band = crew.next())
            fill(target.raster, *band);
    });
}

// The part of a region that can show, and perhaps a little more.
QRegion seenOf(const QPainter &painter, const QRegion &exposed)
{
    const QPaintEngine *engine = painter.paintEngine();
    const QRect clip = engine ? engine->systemClip().boundingRect() : QRect();
    if (clip.isEmpty())
        return exposed;
    const QTransform toSpace = painter.deviceTransform().inverted();
    return exposed & toSpace.mapRect(QRectF(clip)).toAlignedRect().adjusted(-1, -1, 1, 1);
}

// Fills a transparent picture first, one for each band.
void fillApart(QPainter &painter, const std::vector<QRegion> &bands, const Bands::Fill &fill)
{
    for (const QRegion &band : bands) {
        const QRect all = band.boundingRect();
        QImage apart(all.size(), QImage::Format_ARGB32_Premultiplied);
        apart.fill(Qt::transparent);
        fill(Raster(apart, all.topLeft()), band);
        for (const QRect &rect : band)
            painter.drawImage(rect.topLeft(), apart, rect.translated(-all.topLeft()));
    }
}

} // namespace

namespace Bands {

void fill(QPainter &painter, const QRegion &exposed, const Fill &fill)
{
    if (const auto target = Target::behind(painter))
        fillThere(*target, exposed, fill, largeToFill);
    else
        fillApart(painter, bandsOf(seenOf(painter, exposed)), fill);
}

std::optional<Lasting> lasting(const QPainter &painter, QBackingStore *window)
{
    const auto target = Target::behind(painter);
    const bool isWindow = target && window && window->paintDevice() == pictureBehind(painter);
    // A window that lets others shine through is cleared first.
    if (!isWindow || target->picture.format != QImage::Format_RGB32)
        return std::nullopt;
    return Lasting{.memory = target->picture.bits, .seen = target->seen};
}

// At once where pixels are not whole: bands would have seams.
void blend(QPainter &painter, const QRegion &exposed, const Fill &fill)
{
    if (const auto target = Target::behind(painter))
        fillThere(*target, exposed, fill, largeToBlend);
    else
        fillApart(painter, {seenOf(painter, exposed)}, fill);
}

} // namespace Bands
