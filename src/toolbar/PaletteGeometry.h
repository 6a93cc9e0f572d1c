#pragma once

#include <QRectF>
#include <QSize>

#include <optional>
#include <variant>

// Where the pieces of the colour palette lie and what a click on it means, in
// points from its top left corner.
namespace PaletteGeometry {

inline constexpr int places = 10; // both of fixed and of recent colours
inline constexpr QSize size{122, 134};

struct Eyedropper {};
struct FixedColor {
    int index;
};
struct RecentColor {
    int index;
};
using Hit = std::variant<Eyedropper, FixedColor, RecentColor>;

[[nodiscard]] QRectF fixedDot(int index);
[[nodiscard]] QRectF eyedropperRow();
[[nodiscard]] QRectF recentSlot(int index);

// Returns what a click there means, or nothing where it does nothing. An empty
// recent slot, and all around it, invites to fill it with the eyedropper.
[[nodiscard]] std::optional<Hit> hitAt(QPointF point, int recentColors);

} // namespace PaletteGeometry
