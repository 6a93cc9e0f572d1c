#pragma once

#include <QRect>

#include <optional>
#include <vector>

// Where the screens are in a picture of the whole desktop. Desktops make such a
// picture in different ways, and do not say in which.
namespace PortalCut {

struct Screen {
    QRect place;  // on the desktop, as the compositor counts: in points, or all in pixels
    QSize pixels; // device pixels, as the user sees it
    double ratio; // the scale as a whole number, as Qt knows it
};

struct Piece {
    QRect area; // in the picture
    bool exact; // the screen's own pixels, not larger or smaller ones
};

// Returns a piece for each screen; absent when the picture has a size that these
// screens cannot have.
[[nodiscard]] std::optional<std::vector<Piece>> pieces(QSize picture, const std::vector<Screen> &screens);

} // namespace PortalCut
