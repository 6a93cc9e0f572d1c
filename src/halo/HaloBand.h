#pragma once

#include "halo/HaloTile.h"

#include <QRect>
#include <QRectF>
#include <QRegion>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// The shape of the glow: strokes along the outline of a selection that fade away
// softly, one upon the other, and a crisp line where the selection ends. Device
// pixels, y downwards.
class HaloBand {
public:
    struct Ring {
        double width; // points
        double alpha;
    };

    static constexpr std::array<Ring, 7> rings{
        {{4, 0.8}, {10, 0.5}, {18, 0.32}, {28, 0.2}, {42, 0.12}, {60, 0.07}, {84, 0.04}}}; // innermost first
    static constexpr double lineWidth = 2;                                                 // points

    struct Shape {
        QRectF selection = {};
        QRect hole = {};    // what must not be tinted: every pixel of the selection
        double scale = 1;   // pixels per point
        double swell = 1;   // how much larger than at rest the soft glow is, about the middle
        double opacity = 1; // of the soft glow

        bool operator==(const Shape &) const = default;
    };

    explicit HaloBand(const Shape &shape);

    [[nodiscard]] const Shape &shape() const { return m_shape; }
    // Covers what the glow may touch of a screen, or only what the line and so
    // many of the innermost rings do.
    [[nodiscard]] QRegion area(const QRect &screen, std::size_t innermost = rings.size()) const;
    // Computes the glow over these pixels into a tile, whose memory serves again.
    void fill(HaloTile &tile, const QRect &pixels) const;

private:
    // Pixels along one axis, without the end. Far enough from the corners only
    // the distance to the nearest side counts.
    struct Stretch {
        int begin, end;
    };
    [[nodiscard]] static Stretch between(double low, double high);
    [[nodiscard]] Stretch straightRows() const;
    [[nodiscard]] Stretch straightColumns() const;
    void coverRow(int y, int left, std::span<std::uint8_t> coverage) const;
    void coverPart(int y, int left, std::span<std::uint8_t> coverage) const;

    Shape m_shape;
    QRectF m_outline; // that the rings follow
    double m_reach;   // how far from it the outermost is seen
    std::vector<float> m_falloff;
};
