#pragma once

#include "halo/HaloTile.h"

#include <QRect>
#include <QRectF>
#include <QRegion>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// Computes the shape of the glow: strokes along the outline of a selection that lie
// upon each other and fade away softly, and a crisp line where the selection ends.
// Everything is in device pixels, y downwards.
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
        QRect hole = {};    // every pixel of the selection, which must not be tinted
        double scale = 1;   // pixels per point
        double swell = 1;   // how many times larger than at rest the soft glow is, about its middle
        double opacity = 1; // of the soft glow

        bool operator==(const Shape &) const = default;
        // Returns how far another shape has moved to become this one, if that is all and
        // it is whole pixels.
        [[nodiscard]] std::optional<QPoint> wayFrom(const Shape &other) const;
    };

    explicit HaloBand(const Shape &shape);

    // Takes a shape to which the one that it has only moves: see Shape::wayFrom().
    void moveTo(const Shape &shape);

    [[nodiscard]] const Shape &shape() const { return m_shape; }
    // Returns the pixels of a screen that the glow may touch, or only those that
    // the line and so many of the innermost rings may touch.
    [[nodiscard]] QRegion area(const QRect &screen, std::size_t innermost = rings.size()) const;
    // Computes the glow over these pixels into a tile, whose memory is reused.
    void fill(HaloTile &tile, const QRect &pixels) const;

private:
    // Describes a half-open range of pixels along one axis. Far enough from the
    // corners only the distance to the nearest side counts.
    struct Stretch {
        int begin, end;
    };
    [[nodiscard]] static Stretch between(double low, double high);
    [[nodiscard]] Stretch straightRows() const;
    [[nodiscard]] Stretch straightColumns() const;
    void coverRow(int y, int left, std::span<std::uint8_t> coverage) const;
    void coverPart(int y, int left, std::span<std::uint8_t> coverage) const;

    Shape m_shape;
    QRectF m_outline; // the rings follow it
    double m_reach;   // how far from the outline the outermost ring is seen
    std::vector<float> m_falloff;
};
