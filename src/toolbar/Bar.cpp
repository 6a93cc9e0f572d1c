#include "toolbar/Bar.h"

#include "access/Spoken.h"
#include "base/Painting.h"
#include "base/Rect.h"
#include "toolbar/BarButton.h"
#include "toolbar/BarEffect.h"
#include "toolbar/PixelGrid.h"
#include "toolbar/Theme.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

using BarLayout::Kind;

namespace {

constexpr double radius = 14; // points
constexpr float edgeAlpha = 0.12F;

QLinearGradient ground(const QRectF &bounds)
{
    QLinearGradient gradient(0, minY(bounds), 0, maxY(bounds));
    gradient.setColorAt(0, Theme::barTop);
    gradient.setColorAt(1, Theme::barBackground);
    return gradient;
}

void drawGround(QPainter &painter, const QRectF &bounds)
{
    painter.setPen(Qt::NoPen);
    for (const QBrush &fill : {QBrush(Theme::barBackground), QBrush(ground(bounds))}) {
        painter.setBrush(fill);
        painter.drawRoundedRect(bounds, radius, radius);
    }
}

} // namespace

Bar::Bar(Qt::Orientation orientation, QWidget *parent)
    : QWidget(parent)
    , m_orientation(orientation)
    , m_effect(new BarEffect(this))
{
    Spoken::setRole(*this, QAccessible::ToolBar);
    setGraphicsEffect(m_effect);
    resize(0, 0);
}

void Bar::addButton(BarButton *button)
{
    m_buttons.append(button);
    button->onWidthChanged = [this] { layoutButtons(); };
    button->onLookChanged = [this] { m_effect->forget(); };
    add({Kind::button, button, button});
}

void Bar::addView(QWidget *view) { add({Kind::button, view}); }

void Bar::addSeparator() { add({Kind::separator}); }

void Bar::addDecoration(QWidget *decoration) { add({Kind::decoration, decoration}); }

void Bar::add(const Entry &entry)
{
    if (entry.widget) {
        if (!entry.button)
            m_effect->keepNothing(); // nobody says when it looks different
        entry.widget->setParent(this);
        entry.widget->show();
    }
    m_entries.append(entry);
    layoutButtons();
}

void Bar::layoutButtons()
{
    QList<BarLayout::Item> items;
    for (const Entry &entry : m_entries)
        items.append({entry.kind, entry.button ? entry.button->sizeHint().width() : BarLayout::buttonSide});
    const BarLayout::Frames frames = BarLayout::layOut(m_orientation, items);
    m_separators.clear();
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].widget)
            m_entries[i].widget->setGeometry(frames.items[i].toRect());
        else
            m_separators.append(frames.items[i]);
    }
    resize(frames.size.toSize());
    m_effect->forget();
    update();
}

double Bar::alpha() const { return m_effect->alpha(); }

void Bar::setAlpha(double alpha) { m_effect->setAlpha(alpha); }

QRect Bar::pictured(double scale) const { return isVisible() ? m_effect->pictured(pos(), scale) : QRect(); }

void Bar::blend(const Raster &raster, const QRegion &part) const { m_effect->blend(raster, part, pos()); }

void Bar::leaveOut(const QRegion &part) { m_effect->leaveOut(part, pos()); }

void Bar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bounds = PixelGrid::snapped(painter, QRectF(rect()));
    drawGround(painter, bounds);
    painter.fillRect(BarLayout::edge(bounds.size()), QColor::fromRgbF(1, 1, 1, edgeAlpha));
    for (const QRectF &line : m_separators)
        painter.fillRect(PixelGrid::snapped(painter, line), Theme::barBorder);
    Painting::drawPanel(painter, bounds, radius, Qt::transparent, Theme::barBorder);
}

void Bar::mousePressEvent(QMouseEvent *event) { event->accept(); }

void Bar::mouseMoveEvent(QMouseEvent *event) { event->accept(); }

void Bar::mouseReleaseEvent(QMouseEvent *event) { event->accept(); }

void Bar::mouseDoubleClickEvent(QMouseEvent *event) { event->accept(); }
