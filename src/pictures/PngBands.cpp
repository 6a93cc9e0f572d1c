#include "pictures/PngBands.h"

#include "pictures/PngFilter.h"
#include "pictures/RgbRow.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <span>
#include <vector>

namespace {

using namespace PngBands;

constexpr qsizetype bandBytes = 768 * 1024LL; // every band starts without history: shorter ones pack worse
constexpr int sampleSpots = 4;
constexpr int sampleRows = 2; // at each spot; more cost time and hardly choose better
constexpr int looksEvery = 4; // rows: enough to tell what a band shows
constexpr int softest = 16;   // the largest step between neighbours in a smooth surface
constexpr int softShare = 24; // one byte in so many makes a band worth a trial

enum class Filter { plain, leastSum };

struct Way {
    Filter filter;
    int level;
    int strategy;
};

// What is drawn packs best as it is, since its shapes repeat byte by byte.
constexpr Way forDrawn{Filter::plain, 3, Z_DEFAULT_STRATEGY};
// Photographs hardly repeat; beside text they do again, for the text's part.
constexpr std::array ways{forDrawn, Way{Filter::leastSum, 4, Z_DEFAULT_STRATEGY},
                          Way{Filter::leastSum, 1, Z_RLE}};

// Goes down the rows of a picture as bytes.
class RowReader {
public:
    RowReader(const QImage &picture, int first)
        : m_picture(picture)
        , m_next(first)
        , m_now(3 * size_t(picture.width()))
        , m_above(m_now.size())
    {
        if (first > 0)
            copyRgbRow(picture, first - 1, m_now.data());
    }

    PngFilter::Row next()
    {
        m_now.swap(m_above);
        copyRgbRow(m_picture, m_next++, m_now.data());
        return {m_now, m_above};
    }

private:
    const QImage &m_picture;
    int m_next;
    std::vector<uchar> m_now;
    std::vector<uchar> m_above;
};

// A raw deflate stream into one array that is large enough from the start.
class Deflater {
public:
    Deflater(const Way &way, qsizetype rawBytes)
        : m_ready(deflateInit2(&m_stream, way.level, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL - 1, way.strategy)
                  == Z_OK)
    {
        if (!m_ready)
            return;
        m_out
            = QByteArray(qsizetype(deflateBound(&m_stream, uLong(rawBytes))) + flushBytes, Qt::Uninitialized);
        m_stream.next_out = reinterpret_cast<Bytef *>(m_out.data());
        m_stream.avail_out = uInt(m_out.size());
    }
    ~Deflater() { deflateEnd(&m_stream); }
    Q_DISABLE_COPY_MOVE(Deflater)

    [[nodiscard]] bool add(PngFilter::Line &line)
    {
        m_stream.next_in = line.data();
        m_stream.avail_in = uInt(line.size());
        return m_ready && deflate(&m_stream, Z_NO_FLUSH) == Z_OK && m_stream.avail_in == 0;
    }

    // Null when something did not fit.
    [[nodiscard]] QByteArray finished()
    {
        if (!m_ready || deflate(&m_stream, Z_SYNC_FLUSH) != Z_OK || m_stream.avail_out == 0)
            return {};
        m_out.truncate(m_out.size() - qsizetype(m_stream.avail_out));
        m_out.squeeze();
        return std::move(m_out);
    }

private:
    static constexpr qsizetype flushBytes = 16; // more than the mark of a flush takes

    z_stream m_stream{};
    bool m_ready;
    QByteArray m_out;
};

qsizetype lineBytes(const QImage &picture) { return 3 * qsizetype(picture.width()) + 1; }

// Several pieces go into one stream, as if they followed each other.
std::optional<Band> packed(const QImage &picture, std::span<const Rows> pieces, const Way &way)
{
    Band band;
    for (const Rows rows : pieces)
        band.rawBytes += rows.count * lineBytes(picture);
    Deflater deflater(way, band.rawBytes);
    PngFilter::LeastSum leastSum;
    PngFilter::Line line;
    for (const Rows rows : pieces) {
        RowReader reader(picture, rows.first);
        for (int i = 0; i < rows.count; ++i) {
            if (way.filter == Filter::plain)
                PngFilter::plain(reader.next(), line);
            else
                leastSum(reader.next(), line);
            if (!deflater.add(line))
                return std::nullopt;
            band.checksum = uint(adler32(band.checksum, line.data(), uInt(line.size())));
        }
    }
    band.deflated = deflater.finished();
    return band.deflated.isNull() ? std::nullopt : std::optional(std::move(band));
}

// Edges of drawn things are hard; small steps from pixel to pixel are
// photographs, shadows and gradients.
bool looksSoft(const QImage &picture, Rows rows)
{
    const size_t size = 3 * size_t(picture.width());
    std::vector<uchar> row(size);
    qsizetype seen = 0, soft = 0;
    for (int i = 0; i < rows.count; i += looksEvery, seen += qsizetype(size)) {
        copyRgbRow(picture, rows.first + i, row.data());
        for (size_t x = 3; x < size; ++x) {
            const int step = std::abs(row[x] - row[x - 3]);
            soft += step > 0 && step <= softest;
        }
    }
    return soft * softShare > seen;
}

// A few rows here and there: text comes and goes within a band.
std::vector<Rows> samplesOf(Rows rows)
{
    if (rows.count < sampleSpots * sampleRows)
        return {rows};
    std::vector<Rows> samples;
    for (int i = 0; i < sampleSpots; ++i) {
        const int middle = (2 * i + 1) * rows.count / (2 * sampleSpots);
        samples.push_back({rows.first + middle - sampleRows / 2, sampleRows});
    }
    return samples;
}

// The way that packs the samples best.
Way best(const QImage &picture, Rows rows)
{
    const std::vector<Rows> samples = samplesOf(rows);
    const auto size = [&](const Way &way) {
        const auto band = packed(picture, samples, way);
        return band ? band->deflated.size() : 0;
    };
    return *std::ranges::min_element(ways, {}, size);
}

} // namespace

namespace PngBands {

QList<Rows> cut(const QImage &picture)
{
    const int most = int(std::clamp<qsizetype>(bandBytes / lineBytes(picture), 1, picture.height()));
    QList<Rows> bands;
    for (int first = 0; first < picture.height(); first += most)
        bands << Rows{first, std::min(most, picture.height() - first)};
    return bands;
}

std::optional<Band> pack(const QImage &picture, Rows rows)
{
    const std::array pieces{rows};
    return packed(picture, pieces, looksSoft(picture, rows) ? best(picture, rows) : forDrawn);
}

} // namespace PngBands
