#include "updater/Spinner.h"

#include <QPainter>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr int spokes = 12;
constexpr auto turn = 1s;
constexpr double faintest = 0.15; // of the text colour

} // namespace

Spinner::Spinner(QWidget *parent) : QWidget(parent) {}

void Spinner::showEvent(QShowEvent *) { m_timer.start(turn / spokes / 1ms, this); }

void Spinner::hideEvent(QHideEvent *) { m_timer.stop(); }

void Spinner::timerEvent(QTimerEvent *)
{
    m_step = (m_step + 1) % spokes;
    update();
}

void Spinner::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    const double radius = std::min(width(), height()) / 2.0;
    QColor color = palette().color(QPalette::WindowText);
    for (int behind = 0; behind < spokes; ++behind) {
        color.setAlphaF(static_cast<float>(std::max(faintest, 1 - behind / static_cast<double>(spokes))));
        painter.setPen(QPen(color, radius / 5, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(360.0 / spokes * (m_step - behind));
        painter.drawLine(QPointF(0, -radius * 0.45), QPointF(0, -radius * 0.85));
        painter.restore();
    }
}
