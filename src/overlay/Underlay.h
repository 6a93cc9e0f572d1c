#pragma once

#include "capture/ScreenShot.h"
#include "overlay/Annotation.h"

#include <QImage>
#include <QRectF>
#include <QRegion>

#include <set>
#include <utility>
#include <vector>

class QPainter;

// What lies under the mark in hand: the selected part of the screen with the
// finished marks on it. Every step of drawing shows some of it again, and a page
// full of marks takes longer to draw than a step may, so it is kept, tile by
// tile as it is asked for.
class Underlay {
public:
    // The shot must outlive it.
    explicit Underlay(const ScreenShot &shot) : m_shot(shot) {}

    // Paints the exposed part (widget points, y downwards) of the selection (view
    // points) with the marks, oldest first, which stay as they are while they are
    // passed here. The painter counts in widget points.
    void draw(QPainter &painter, const QRectF &selection, const std::vector<AnnotationPtr> &marks,
              const QRegion &exposed);

    // The memory is free again.
    void forget();

private:
    using Cell = std::pair<int, int>; // column and row of a tile, from the top left

    void follow(const QRectF &selection, const std::vector<AnnotationPtr> &marks);
    void prepare(const QRect &pixels);
    void makeTile(Cell cell);

    const ScreenShot &m_shot;
    QRectF m_selection;
    std::vector<AnnotationPtr> m_marks;
    std::vector<QRegion> m_footprints; // of each mark
    // As large as the screen, so that the marks fall on the same grid of pixels;
    // what is not ready has never been written and takes no memory.
    QImage m_picture;
    std::set<Cell> m_ready;
};
