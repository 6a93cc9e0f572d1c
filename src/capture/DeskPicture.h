#pragma once

#include "base/ScreenShot.h"

#include <QRect>

#include <vector>

// Puts the pictures of several screens together into one, laid out as on the desk.
// Rectangles are in device pixels of the desk, whose zero is that of the system.
// Where all screens share their pixels these are the system's own; where the system
// counts in points, each stretch of the desk has as many pixels a point as the
// densest screen in it, so that no screen is scaled, and none covers another that
// it does not cover already.
class DeskPicture {
public:
    // Takes pictures that are not null.
    explicit DeskPicture(std::vector<ScreenShot> shots);

    // Returns the smallest rectangle that holds all screens.
    [[nodiscard]] QRect area() const;
    // Returns whether some screen shows a part of the region.
    [[nodiscard]] bool shows(const QRect &region) const;
    // Returns what the screens show there, black where there is none; null when there
    // is not enough memory.
    [[nodiscard]] QImage cut(const QRect &region) const;
    // Returns the scale of the screens in the region, one where they differ.
    [[nodiscard]] double scaleOf(const QRect &region) const;

private:
    struct Part {
        QRect area;
        QImage image;
        double scale;
    };

    std::vector<Part> m_parts;
};
