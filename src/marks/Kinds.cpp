#include "marks/Kinds.h"

#include "l10n/L10n.h"
#include "marks/Annotation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Looks {
extern const Look stroke, line, arrow, rectangle, ellipse, text, mosaic;
}

namespace {

QPointF asItIs(QPointF, QPointF to) { return to; }

QPointF squareCorner(QPointF a, QPointF b)
{
    const double side = std::max(std::abs(b.x() - a.x()), std::abs(b.y() - a.y()));
    return {b.x() < a.x() ? a.x() - side : a.x() + side, b.y() < a.y() ? a.y() - side : a.y() + side};
}

// The end keeps the pointer's distance, not its projection.
QPointF onEighthTurn(QPointF a, QPointF b)
{
    constexpr double step = std::numbers::pi / 4;
    const QPointF v = b - a;
    const double angle = std::round(std::atan2(v.y(), v.x()) / step) * step;
    return a + std::hypot(v.x(), v.y()) * QPointF(std::cos(angle), std::sin(angle));
}

// clang-format off
const std::array<Kind, allTools.size()> kinds{{
    {Tool::pencil,    u"Lápiz",      u'P', u"scribble.variable",      true,  Qt::CrossCursor, asItIs,       Looks::stroke},
    {Tool::line,      u"Línea",      u'L', u"line.diagonal",          false, Qt::CrossCursor, onEighthTurn, Looks::line},
    {Tool::arrow,     u"Flecha",     u'A', u"arrow.up.right",         false, Qt::CrossCursor, onEighthTurn, Looks::arrow},
    {Tool::rectangle, u"Rectángulo", u'R', u"rectangle",              false, Qt::CrossCursor, squareCorner, Looks::rectangle},
    {Tool::ellipse,   u"Elipse",     u'E', u"circle",                 false, Qt::CrossCursor, squareCorner, Looks::ellipse},
    {Tool::marker,    u"Marcador",   u'M', u"highlighter",            true,  Qt::CrossCursor, asItIs,       Looks::stroke},
    {Tool::text,      u"Texto",      u'T', u"textformat",             false, Qt::IBeamCursor, asItIs,       Looks::text},
    {Tool::pixelate,  u"Pixelar",    u'X', u"checkerboard.rectangle", false, Qt::CrossCursor, asItIs,       Looks::mosaic},
}};
// clang-format on

} // namespace

const Kind &kindOf(Tool tool) { return kinds.at(static_cast<std::size_t>(tool)); }

QString label(Tool tool) { return L10n::t(kindOf(tool).text); }

std::optional<Tool> toolForLetter(QChar letter)
{
    const auto *kind = std::ranges::find(kinds, letter.toUpper().unicode(), &Kind::letter);
    return kind == kinds.end() ? std::nullopt : std::optional(kind->tool);
}

void Annotation::draw(QPainter &painter, const QRectF &exposed) const
{
    kindOf(tool).look.draw(painter, *this, exposed);
}
