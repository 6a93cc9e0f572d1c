#include "base/Painting.h"

#include "base/Rect.h"

#include <QFontMetricsF>

#include <algorithm>

namespace {

using Painting::Digits;
using Painting::Label;

double digitCell(const QFontMetricsF &metrics)
{
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

// Calls step(piece, x, cell width) for every part that is laid out on its own
// and returns the whole width.
template <typename Step>
double layOut(const Label &label, const QFontMetricsF &metrics, Step step)
{
    if (label.digits == Digits::asInFont) {
        const double width = metrics.horizontalAdvance(label.text);
        step(label.text, 0.0);
        return width;
    }
    const double cell = digitCell(metrics);
    double x = 0;
    for (const QChar c : label.text) {
        const double advance = metrics.horizontalAdvance(c);
        const double width = c.isDigit() ? cell : advance;
        step(QString(c), x + (width - advance) / 2);
        x += width;
    }
    return x;
}

} // namespace

namespace Painting {

// A line no wider than a pixel Qt draws in a quick way, in which it bends where the
// painted part ends: a mark would show where its tiles meet.
QPen roundPen(const QColor &color, double width, Qt::PenJoinStyle join)
{
    constexpr double notQuick = 1.001; // pixels at the smallest scale
    return {color, std::max(width, notQuick), Qt::SolidLine, Qt::RoundCap, join};
}

QSizeF sizeOf(const Label &label)
{
    const QFontMetricsF metrics(label.font);
    const QSizeF size{layOut(label, metrics, [](const QString &, double) {}), metrics.height()};
    return size / label.enlarged;
}

void drawText(QPainter &painter, QPointF lowerLeft, const Label &label)
{
    const Saved saved(painter);
    painter.translate(lowerLeft);
    painter.scale(1, -1); // glyphs would stand on their heads
    drawTextDownwards(painter, {0, -QFontMetricsF(label.font).height() / label.enlarged}, label);
}

void drawTextDownwards(QPainter &painter, QPointF upperLeft, const Label &label)
{
    const Saved saved(painter);
    const QFontMetricsF metrics(label.font);
    const double baseline = metrics.height() - metrics.descent();
    painter.translate(upperLeft);
    painter.scale(1 / label.enlarged, 1 / label.enlarged);
    painter.setFont(label.font);
    painter.setPen(label.color);
    layOut(label, metrics, [&](const QString &piece, double x) {
        painter.drawText(QPointF{x, baseline}, piece);
    });
}

void drawPanel(QPainter &painter, const QRectF &rect, double radius, const QColor &fill, const QColor &border)
{
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(rect, radius, radius);
    if (!border.isValid())
        return;
    painter.setPen(QPen(border, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(grown(rect, -0.5), radius - 0.5, radius - 0.5);
}

void drawPill(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &border)
{
    drawPanel(painter, rect, rect.height() / 2, fill, border);
}

} // namespace Painting
