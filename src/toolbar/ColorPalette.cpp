#include "toolbar/ColorPalette.h"

#include "base/Fonts.h"
#include "base/Overloaded.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "l10n/L10n.h"
#include "toolbar/ColorHex.h"
#include "toolbar/PixelGrid.h"
#include "toolbar/RecentColors.h"
#include "toolbar/Symbols.h"
#include "toolbar/Theme.h"

#include <QMouseEvent>
#include <QPainter>

using Painting::Label;

namespace {

// All in points.
constexpr double radius = 14;
constexpr double rowRadius = 6;
constexpr double ringDistance = 3;
constexpr double ringWidth = 2;
constexpr double textSize = 11;
constexpr double symbolSlot = 13;
constexpr double afterSymbol = 5;

QColor white(float alpha) { return QColor::fromRgbF(1, 1, 1, alpha); }

void drawEyedropperRow(QPainter &painter)
{
    const QRectF row = PaletteGeometry::eyedropperRow();
    Painting::drawPanel(painter, row, rowRadius, white(0.1F));
    const Label label{.text = L10n::t(u"Cuentagotas"), .font = Fonts::system(textSize, QFont::DemiBold)};
    const QSizeF text = Painting::sizeOf(label);
    const double x = midX(row) - (symbolSlot + afterSymbol + text.width()) / 2;
    Symbols::draw(painter, {x + symbolSlot / 2, midY(row)},
                  {u"eyedropper", textSize, Qt::white, Symbols::Weight::semibold});
    Painting::drawTextDownwards(painter, {x + symbolSlot + afterSymbol, midY(row) - text.height() / 2},
                                label);
}

void drawEmptySlot(QPainter &painter, const QRectF &slot)
{
    QPen pen(white(0.28F), 1, Qt::SolidLine, Qt::FlatCap);
    pen.setDashPattern({2, 2});
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(grown(slot, -1));
}

// Qt rounds a widget's own positions to whole points, which are not
// whole pixels; the window's are exact.
QPointF exactPosition(const QMouseEvent &event, const QWidget &widget)
{
    return event.scenePosition() - QPointF(widget.mapTo(widget.window(), QPoint(0, 0)));
}

} // namespace

ColorPalette::ColorPalette(QWidget *parent) : QWidget(parent), m_recents(RecentColors::colors())
{
    resize(PaletteGeometry::size);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(L10n::t(u"Colores"));
}

void ColorPalette::setSelected(const std::optional<QColor> &color)
{
    m_selected = color;
    update();
}

bool ColorPalette::isSelected(const QColor &color) const
{
    return m_selected && hex(*m_selected) == hex(color);
}

QList<PaletteGeometry::Hit> ColorPalette::items() const
{
    QList<PaletteGeometry::Hit> items;
    for (int i = 0; i < PaletteGeometry::places; ++i)
        items.append(PaletteGeometry::FixedColor{i});
    items.append(PaletteGeometry::Eyedropper{});
    for (int i = 0; i < m_recents.size(); ++i)
        items.append(PaletteGeometry::RecentColor{i});
    return items;
}

std::optional<QColor> ColorPalette::colorOf(const PaletteGeometry::Hit &item) const
{
    using Color = std::optional<QColor>;
    return std::visit(
        Overloaded{
            [](PaletteGeometry::Eyedropper) { return Color(); },
            [](PaletteGeometry::FixedColor fixed) {
                return Color(Theme::drawColors[static_cast<std::size_t>(fixed.index)]);
            },
            [this](PaletteGeometry::RecentColor recent) { return Color(m_recents[recent.index]); },
        },
        item);
}

void ColorPalette::drawDot(QPainter &painter, const QRectF &dot, const QColor &color) const
{
    painter.setPen(QPen(white(0.5F), 1));
    painter.setBrush(color);
    painter.drawEllipse(dot);
    if (!isSelected(color))
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), ringWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(grown(dot, ringDistance));
}

void ColorPalette::drawRecents(QPainter &painter) const
{
    for (int i = 0; i < PaletteGeometry::places; ++i) {
        const QRectF slot = PaletteGeometry::recentSlot(i);
        if (i < m_recents.size())
            drawDot(painter, slot, m_recents[i]);
        else
            drawEmptySlot(painter, slot);
    }
}

void ColorPalette::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Painting::drawPanel(painter, PixelGrid::snapped(painter, QRectF(rect())), radius, Theme::barBackground,
                        Theme::barBorder);
    for (int i = 0; i < PaletteGeometry::places; ++i)
        drawDot(painter, PaletteGeometry::fixedDot(i), Theme::drawColors[static_cast<std::size_t>(i)]);
    drawEyedropperRow(painter);
    drawRecents(painter);
}

void ColorPalette::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto hit
        = PaletteGeometry::hitAt(exactPosition(*event, *this), static_cast<int>(m_recents.size())))
        choose(*hit);
}

void ColorPalette::mouseMoveEvent(QMouseEvent *event) { event->accept(); }

void ColorPalette::mouseReleaseEvent(QMouseEvent *event) { event->accept(); }

void ColorPalette::choose(const PaletteGeometry::Hit &item) const
{
    const auto color = colorOf(item);
    if (color && onPick)
        onPick(*color);
    else if (!color && onEyedropper)
        onEyedropper();
}
