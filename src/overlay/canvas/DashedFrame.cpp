#include "overlay/canvas/DashedFrame.h"

#include "base/Painting.h"
#include "base/Rect.h"

#include <QLineF>
#include <QList>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double dashLength = 4; // points
constexpr double gapLength = 3;

// The stretches of one edge that are as long as the first length and as far apart as
// the second; travelled is how far round the frame the edge begins, so that the
// pattern goes on round the corners.
void addStretches(QList<QLineF> &lines, const QLineF &edge, double length, double apart, double travelled)
{
    const double edgeLength = edge.length();
    const QPointF unit = (edge.p2() - edge.p1()) / std::max(edgeLength, 1.0);
    double at = -std::fmod(travelled, length + apart);
    for (; at < edgeLength; at += length + apart) {
        const double begin = std::max(at, 0.0);
        const double end = std::min(at + length, edgeLength);
        if (end > begin)
            lines.append({edge.p1() + unit * begin, edge.p1() + unit * end});
    }
}

// Dash by dash: Qt's dashed pen shifts its pattern with the part of the
// screen that is repainted.
QList<QLineF> dashesOf(const std::array<QLineF, 4> &edges)
{
    QList<QLineF> lines;
    double travelled = 0;
    for (const QLineF &edge : edges) {
        addStretches(lines, edge, dashLength, gapLength, travelled);
        travelled += edge.length();
    }
    return lines;
}

} // namespace

namespace DashedFrame {

void draw(QPainter &painter, const QRectF &frame, const QColor &dashes, const QColor &gaps)
{
    const QPointF low(minX(frame), minY(frame));
    const QPointF high(maxX(frame), maxY(frame));
    const QPointF right(high.x(), low.y());
    const QPointF left(low.x(), high.y());
    const std::array edges{QLineF(low, right), QLineF(right, high), QLineF(high, left), QLineF(left, low)};
    const Painting::Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (gaps.isValid()) {
        painter.setPen(QPen(gaps, 1, Qt::SolidLine, Qt::FlatCap));
        painter.drawLines(edges.data(), int(edges.size()));
    }
    painter.setPen(QPen(dashes, 1, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(dashesOf(edges));
}

} // namespace DashedFrame
