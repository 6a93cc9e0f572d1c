#include "base/Bands.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <semaphore>
#include <vector>

namespace {

constexpr int bandHeight = 64;     // device pixels
constexpr int largeArea = 500'000; // device pixels; below, waking a thread costs more than it saves
constexpr int mostThreads = 4;     // more only wait for the memory

std::vector<QRegion> bandsOf(const QRegion &region)
{
    const QRect all = region.boundingRect();
    std::vector<QRegion> bands;
    for (int top = all.top(); top <= all.bottom(); top += bandHeight)
        if (const QRegion band = region & QRect(all.left(), top, all.width(), bandHeight); !band.isEmpty())
            bands.push_back(band);
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

bool isLarge(const QRegion &region)
{
    qint64 area = 0;
    for (const QRect &rect : region)
        area += qint64(rect.width()) * rect.height();
    return area > largeArea;
}

// Several painters on one picture. Each takes the next band that is left, so
// whoever is held up holds nobody else up.
class Painters {
public:
    Painters(const QImage &picture, const QTransform &toPixels, const std::vector<QRegion> &bands,
             const Bands::Paint &paint)
        : m_bits(const_cast<uchar *>(picture.constBits())) // bits() might make it a copy
        , m_size(picture.size())
        , m_bytesPerLine(picture.bytesPerLine())
        , m_format(picture.format())
        , m_toPixels(toPixels)
        , m_bands(bands)
        , m_paint(paint)
    {}

    void work()
    {
        QImage shared(m_bits, m_size.width(), m_size.height(), m_bytesPerLine, m_format);
        QPainter painter(&shared);
        painter.setTransform(m_toPixels);
        for (std::size_t i = m_next++; i < m_bands.size(); i = m_next++)
            m_paint(painter, m_bands[i]);
    }

    void workWithOthers()
    {
        const int wanted = std::min(QThread::idealThreadCount(), mostThreads) - 1;
        int others = 0;
        while (others < wanted && QThreadPool::globalInstance()->tryStart([this] {
            work();
            m_ended.release();
        }))
            ++others;
        work();
        for (; others > 0; --others)
            m_ended.acquire();
    }

private:
    uchar *const m_bits;
    const QSize m_size;
    const qsizetype m_bytesPerLine;
    const QImage::Format m_format;
    const QTransform m_toPixels;
    const std::vector<QRegion> &m_bands;
    const Bands::Paint &m_paint;
    std::atomic<std::size_t> m_next = 0;
    std::counting_semaphore<mostThreads> m_ended{0};
};

} // namespace

namespace Bands {

void draw(QPainter &painter, const QRegion &exposed, const Paint &paint)
{
    const std::vector<QRegion> bands = bandsOf(exposed);
    const QImage *picture = isLarge(exposed) ? pictureBehind(painter) : nullptr;
    if (picture)
        return Painters(*picture, painter.deviceTransform(), bands, paint).workWithOthers();
    for (const QRegion &band : bands)
        paint(painter, band);
}

} // namespace Bands
