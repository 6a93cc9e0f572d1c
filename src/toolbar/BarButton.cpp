#include "toolbar/BarButton.h"

#include "access/Spoken.h"
#include "base/Easing.h"
#include "toolbar/BarLayout.h"
#include <QPainter>

#include <chrono>
#include <cmath>

using namespace std::chrono_literals;

namespace {

constexpr auto fadeTime = 120ms;
constexpr auto fastFadeTime = 60ms;
constexpr int buttonSide = static_cast<int>(BarLayout::buttonSide);

} // namespace

BarButton::BarButton(const QString &symbol, QWidget *parent) : QAbstractButton(parent)
{
    Spoken::setRole(*this, QAccessible::Button);
    m_state.symbol = symbol;
    m_background = BarButtonPaint::fill(m_state);
    m_fade.setEasingCurve(Easing::out());
    resize(buttonSide, buttonSide);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_background = value.value<QColor>();
        redraw();
    });
    // Also sent when a held pointer leaves the button and comes back.
    connect(this, &QAbstractButton::pressed, this, [this] { setPressed(true); });
    connect(this, &QAbstractButton::released, this, [this] { setPressed(false); });
}

void BarButton::setActive(bool active)
{
    m_state.isActive = active;
    Spoken::setOn(*this, active);
    refresh(Speed::normal);
}

void BarButton::setPrimary(bool primary)
{
    m_state.isPrimary = primary;
    refresh(Speed::normal);
    widthChanged();
}

void BarButton::setSwatch(const std::optional<QColor> &color)
{
    const bool widens = m_state.swatch.has_value() != color.has_value();
    m_state.swatch = color;
    redraw();
    if (widens)
        widthChanged();
}

void BarButton::setWidthLabel(const std::optional<QString> &text)
{
    m_state.widthLabel = text;
    widthChanged();
}

void BarButton::setLabel(const std::optional<QString> &text)
{
    m_state.label = text;
    widthChanged();
}

void BarButton::setKeyHint(const std::optional<QString> &text)
{
    m_state.keyHint = text;
    widthChanged();
}

void BarButton::setDotColor(const std::optional<QColor> &color)
{
    m_state.dotColor = color;
    redraw();
}

void BarButton::refresh(Speed speed)
{
    const QColor target = BarButtonPaint::fill(m_state);
    m_fade.stop();
    redraw(); // border and tint change at once
    if (target == m_background)
        return;
    m_fade.setDuration(static_cast<int>((speed == Speed::fast ? fastFadeTime : fadeTime).count()));
    m_fade.setStartValue(m_background);
    m_fade.setEndValue(target);
    m_fade.start();
}

double BarButton::preferredWidth() const { return BarButtonPaint::preferredWidth(m_state); }

QSize BarButton::sizeHint() const { return {static_cast<int>(std::ceil(preferredWidth())), buttonSide}; }

void BarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    BarButtonPaint::draw(painter, rect(), m_state, m_background);
}

void BarButton::enterEvent(QEnterEvent *) { setHovering(true); }

void BarButton::leaveEvent(QEvent *) { setHovering(false); }

void BarButton::setHovering(bool hovering)
{
    m_state.hovering = hovering;
    refresh(Speed::normal);
}

void BarButton::setPressed(bool pressed)
{
    m_state.pressed = pressed;
    refresh(Speed::fast);
}

void BarButton::redraw()
{
    if (onLookChanged)
        onLookChanged();
    update();
}

void BarButton::widthChanged()
{
    redraw();
    updateGeometry();
    if (onWidthChanged)
        onWidthChanged();
}
