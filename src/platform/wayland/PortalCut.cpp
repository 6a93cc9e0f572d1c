#include "platform/wayland/PortalCut.h"

#include <algorithm>
#include <cmath>

namespace {

using PortalCut::Piece;
using PortalCut::Screen;

// Where every screen would be, and the whole.
struct Plan {
    std::vector<Piece> pieces;
    QSizeF whole;
};

double scaleOf(const Screen &screen)
{
    const bool wide = screen.place.width() > screen.place.height();
    return wide ? double(screen.pixels.width()) / screen.place.width()
                : double(screen.pixels.height()) / screen.place.height();
}

bool isWhole(double value)
{
    constexpr double slack = 1.0 / 64;
    return std::abs(value - std::round(value)) < slack;
}

// The compositor has rounded points, so a size may be a pixel off.
bool isAbout(QSizeF size, QSize wanted)
{
    constexpr double off = 1.5;
    return std::abs(size.width() - wanted.width()) < off && std::abs(size.height() - wanted.height()) < off;
}

QRect boundsOf(const std::vector<Screen> &screens)
{
    QRect bounds;
    for (const Screen &screen : screens)
        bounds |= screen.place;
    return bounds;
}

// Everything is magnified alike.
Plan magnified(const std::vector<Screen> &screens, double scale)
{
    const QRect bounds = boundsOf(screens);
    Plan plan{.pieces = {}, .whole = QSizeF(bounds.size()) * scale};
    for (const Screen &screen : screens) {
        const QPointF corner = QPointF(screen.place.topLeft() - bounds.topLeft()) * scale;
        const QSizeF size = QSizeF(screen.place.size()) * scale;
        const bool own = isAbout(size, screen.pixels);
        plan.pieces.push_back({.area = QRect(corner.toPoint(), own ? screen.pixels : size.toSize()),
                               .exact = own && isWhole(corner.x()) && isWhole(corner.y())});
    }
    return plan;
}

// Every screen has its own pixels, and the desktop counts in them. Absent when the
// screens would then lie upon each other.
std::optional<Plan> inPixels(const std::vector<Screen> &screens)
{
    std::vector<Screen> laid = screens;
    for (Screen &screen : laid)
        screen.place.setSize(screen.pixels);
    for (size_t i = 0; i < laid.size(); ++i)
        for (size_t j = 0; j < i; ++j)
            if (laid[i].place.intersects(laid[j].place))
                return std::nullopt;
    return magnified(laid, 1);
}

std::vector<Plan> plansFor(const std::vector<Screen> &screens)
{
    std::vector<double> scales{1};
    for (const Screen &screen : screens) {
        scales.push_back(scaleOf(screen));
        scales.push_back(screen.ratio);
    }
    // The largest first: most desktops magnify to that.
    std::ranges::sort(scales, std::greater());
    std::vector<Plan> plans;
    for (const double scale : scales)
        plans.push_back(magnified(screens, scale));
    if (auto plan = inPixels(screens))
        plans.push_back(std::move(*plan));
    return plans;
}

qsizetype exactPieces(const Plan &plan) { return std::ranges::count(plan.pieces, true, &Piece::exact); }

} // namespace

namespace PortalCut {

std::optional<std::vector<Piece>> pieces(QSize picture, const std::vector<Screen> &screens)
{
    const auto impossible
        = [](const Screen &screen) { return screen.place.isEmpty() || screen.pixels.isEmpty(); };
    if (screens.empty() || std::ranges::any_of(screens, impossible))
        return std::nullopt;
    std::vector<Plan> plans = plansFor(screens);
    std::erase_if(plans, [&](const Plan &plan) { return !isAbout(plan.whole, picture); });
    // Where the size does not tell, the screens' own pixels are more likely than others.
    const auto best = std::ranges::max_element(plans, {}, exactPieces);
    if (best == plans.end())
        return std::nullopt;
    for (Piece &piece : best->pieces)
        piece.area &= QRect(QPoint(), picture);
    return best->pieces;
}

} // namespace PortalCut
