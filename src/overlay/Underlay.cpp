#include "overlay/Underlay.h"

#include "base/Painting.h"
#include "base/ViewSpace.h"
#include "overlay/MarkFootprint.h"
#include "overlay/Rendering.h"

#include <QPainter>

namespace {

constexpr int side = 128; // of a tile, in device pixels

} // namespace

void Underlay::draw(QPainter &painter, const QRectF &selection, const std::vector<AnnotationPtr> &marks,
                    const QRegion &exposed)
{
    follow(selection, marks);
    const Painting::Saved saved(painter);
    painter.scale(1 / m_shot.scale, 1 / m_shot.scale); // from here on in pixels
    const QRect selected
        = ViewSpace(m_shot.pointSize).toPixels(selection, m_shot.scale) & m_shot.image.rect();
    for (const QRect &points : exposed) {
        const QRectF scaled(QPointF(points.topLeft()) * m_shot.scale, QSizeF(points.size()) * m_shot.scale);
        const QRect pixels = scaled.toAlignedRect() & selected;
        if (pixels.isEmpty())
            continue;
        prepare(pixels);
        const Painting::Saved unclipped(painter);
        painter.setClipRect(pixels, Qt::IntersectClip); // copied in rows, not span by span
        painter.drawImage(pixels.topLeft(), m_picture, pixels);
    }
}

void Underlay::forget()
{
    m_picture = {};
    m_ready.clear();
    m_marks.clear();
    m_footprints.clear();
}

void Underlay::follow(const QRectF &selection, const std::vector<AnnotationPtr> &marks)
{
    if (!m_picture.isNull() && m_selection == selection && m_marks == marks)
        return;
    forget();
    m_picture = QImage(m_shot.image.size(), m_shot.image.format());
    m_selection = selection;
    m_marks = marks;
    const ViewSpace space(m_shot.pointSize);
    for (const AnnotationPtr &mark : marks)
        m_footprints.push_back(MarkFootprint::of(*mark, space));
}

void Underlay::prepare(const QRect &pixels)
{
    for (int row = pixels.top() / side; row <= pixels.bottom() / side; ++row)
        for (int column = pixels.left() / side; column <= pixels.right() / side; ++column)
            if (m_ready.emplace(column, row).second)
                makeTile({column, row});
}

void Underlay::makeTile(Cell cell)
{
    const QRect pixels = QRect(cell.first * side, cell.second * side, side, side) & m_shot.image.rect();
    const QRectF points(QPointF(pixels.topLeft()) / m_shot.scale, QSizeF(pixels.size()) / m_shot.scale);
    std::vector<AnnotationPtr> touching;
    for (std::size_t i = 0; i < m_marks.size(); ++i)
        if (m_footprints[i].intersects(points.toAlignedRect()))
            touching.push_back(m_marks[i]);
    QPainter painter(&m_picture);
    painter.drawImage(pixels.topLeft(), m_shot.image, pixels);
    const QRectF shown = ViewSpace(m_shot.pointSize).fromWidget(points) & m_selection;
    Rendering::drawMarks(painter, touching, shown, m_shot);
}
