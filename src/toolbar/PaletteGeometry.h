#pragma once

#include <QRectF>
#include <QSize>

#include <optional>
#include <variant>

// Computes where the pieces of the colour palette lie and what a click on it means,
// in points from its top left corner.
namespace PaletteGeometry {

inline constexpr int places = 10; // the number of fixed colours, and of recent ones
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

// Returns the place of what can be clicked.
[[nodiscard]] QRectF placeOf(const Hit &item);

// Returns what a click at the point means; absent where it does nothing. A click on
// an empty recent slot, or round it, chooses the eyedropper, which fills the slot.
[[nodiscard]] std::optional<Hit> hitAt(QPointF point, int recentColors);

} // namespace PaletteGeometry
