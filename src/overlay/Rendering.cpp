#include "overlay/Rendering.h"

#include "base/ViewSpace.h"

#include <QPainter>

namespace Rendering {

void drawMarks(QPainter &painter, const std::vector<AnnotationPtr> &marks, const QRectF &shown,
               const ScreenShot &shot)
{
    painter.scale(shot.scale, shot.scale);
    painter.setTransform(ViewSpace(shot.pointSize).upwards(), true);
    painter.setClipRect(shown);
    for (const AnnotationPtr &mark : marks)
        mark->draw(painter, shown);
}

std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot)
{
    if (!state.selection || state.selection->width() < 1 || state.selection->height() < 1)
        return std::nullopt;
    const QRect pixels = ViewSpace(shot.pointSize).toPixels(*state.selection, shot.scale) & shot.image.rect();
    QImage picture = shot.image.copy(pixels);
    if (picture.isNull())
        return std::nullopt;
    if (!state.annotations.empty()) {
        QPainter painter(&picture);
        painter.translate(-pixels.topLeft());
        drawMarks(painter, state.drawOrder(), *state.selection, shot);
    }
    picture.setDevicePixelRatio(shot.scale);
    return picture;
}

} // namespace Rendering
