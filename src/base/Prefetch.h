#pragma once

#include <QRgb>

// Begins to fetch the memory of rows of pixels before they are worked on: every row of a
// screen is on another page, and waiting for one after the other takes longer than the
// work. Only a hint; nothing is read or written.
namespace Prefetch {

constexpr int pixelsInCacheLine = 16;
constexpr int rowsAhead = 8; // that are worth being fetched while one is worked on

inline void toRead(const QRgb *row, int count)
{
    for (int x = 0; x < count; x += pixelsInCacheLine)
        __builtin_prefetch(row + x);
}

// Works on the rows from top to bottom while fetch, called with a row as work is, has begun
// to fetch the next ones.
inline void forRows(int top, int bottom, const auto &fetch, const auto &work)
{
    for (int y = top - rowsAhead; y <= bottom; ++y) {
        if (y + rowsAhead <= bottom)
            fetch(y + rowsAhead);
        if (y >= top)
            work(y);
    }
}

inline void toWrite(const QRgb *row, int count)
{
    for (int x = 0; x < count; x += pixelsInCacheLine)
        __builtin_prefetch(row + x, 1);
}

} // namespace Prefetch
