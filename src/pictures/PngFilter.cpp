#include "pictures/PngFilter.h"

#include <algorithm>
#include <cstdlib>

namespace {

using PngFilter::Line;
using PngFilter::Row;

constexpr size_t pixelBytes = 3;

enum FilterNumber : uchar { none, sub, up, average, paeth };

// Paeth's predictor in 16 bits and without branches, so that compilers turn it
// into vector code.
uchar nearest(uchar leftByte, uchar aboveByte, uchar cornerByte)
{
    const short left = leftByte, above = aboveByte, corner = cornerByte;
    const short toLeft = short(above - corner), toAbove = short(left - corner);
    const short toCorner = short(toLeft + toAbove);
    const short l = short(std::abs(toLeft)), a = short(std::abs(toAbove)), c = short(std::abs(toCorner));
    const short other = a <= c ? above : corner;
    return uchar(l <= a && l <= c ? left : other);
}

// Returns the sum of the residues' magnitudes.
template <typename Predict>
uint filter(const Row &row, FilterNumber number, Line &line, Predict predict)
{
    const size_t size = row.now.size();
    const uchar *const now = row.now.data(), *const above = row.above.data();
    line.resize(size + 1);
    line[0] = number;
    uchar *const out = line.data() + 1;
    for (size_t i = 0; i < pixelBytes; ++i)
        out[i] = uchar(now[i] - predict(uchar{0}, above[i], uchar{0}));
    for (size_t i = pixelBytes; i < size; ++i)
        out[i] = uchar(now[i] - predict(now[i - pixelBytes], above[i], above[i - pixelBytes]));
    uint sum = 0;
    for (size_t i = 0; i < size; ++i)
        sum += uint(std::abs(int(qint8(out[i]))));
    return sum;
}

} // namespace

namespace PngFilter {

void plain(const Row &row, Line &line)
{
    line.resize(row.now.size() + 1);
    line[0] = none;
    std::ranges::copy(row.now, line.begin() + 1);
}

void LeastSum::operator()(const Row &row, Line &line)
{
    uint least = filter(row, sub, line, [](uchar left, uchar, uchar) { return left; });
    const auto keepLesser = [&](uint sum) {
        if (sum < least)
            line.swap(m_attempt);
        least = std::min(least, sum);
    };
    keepLesser(filter(row, up, m_attempt, [](uchar, uchar above, uchar) { return above; }));
    keepLesser(filter(row, average, m_attempt,
                      [](uchar left, uchar above, uchar) { return uchar((left + above) / 2); }));
    keepLesser(filter(row, paeth, m_attempt, nearest));
}

} // namespace PngFilter
