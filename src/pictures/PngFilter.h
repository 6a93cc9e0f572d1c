#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

// Implements the filters of PNG for rows of three bytes per pixel.
namespace PngFilter {

struct Row {
    std::span<const uchar> now;
    std::span<const uchar> above; // zeros for the topmost row
};

// A Line is a row as PNG stores it: the number of the filter, then the bytes.
using Line = std::vector<uchar>;

// Writes the row with filter 0, which changes nothing.
void plain(const Row &row, Line &line);

// Tries the four filters that predict and keeps the one whose residues, read as
// signed bytes, have the smallest sum of magnitudes, as the PNG standard recommends
// for photographs.
class LeastSum {
public:
    void operator()(const Row &row, Line &line);

private:
    Line m_attempt;
};

} // namespace PngFilter
