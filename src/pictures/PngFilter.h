#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

// The filters of PNG for rows of three bytes a pixel.
namespace PngFilter {

struct Row {
    std::span<const uchar> now;
    std::span<const uchar> above; // zeros for the topmost row
};

// A row as PNG wants it: the filter's number, then the bytes.
using Line = std::vector<uchar>;

void plain(const Row &row, Line &line);

// Tries all predictions and keeps the one whose residues, read as signed
// bytes, have the least sum of magnitudes, as the PNG standard recommends for
// photographs.
class LeastSum {
public:
    void operator()(const Row &row, Line &line);

private:
    Line m_attempt;
};

} // namespace PngFilter
