#include "overlay/Rendering.h"

#include "base/ViewSpace.h"

#include <QPainter>

namespace {

// The same grid of pixels as on the screen, so that the marks come out alike.
void drawMarks(QImage &picture, QPoint corner, const EditorState &state, const ScreenShot &shot)
{
    QPainter painter(&picture);
    painter.translate(-corner);
    painter.scale(shot.scale, shot.scale);
    painter.setTransform(ViewSpace(shot.pointSize).upwards(), true);
    painter.setClipRect(*state.selection);
    for (const AnnotationPtr &mark : state.drawOrder())
        mark->draw(painter, *state.selection);
}

} // namespace

namespace Rendering {

std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot)
{
    if (!state.selection || state.selection->width() < 1 || state.selection->height() < 1)
        return std::nullopt;
    const QRect pixels = ViewSpace(shot.pointSize).toPixels(*state.selection, shot.scale) & shot.image.rect();
    QImage picture = shot.image.copy(pixels);
    if (picture.isNull())
        return std::nullopt;
    if (!state.annotations.empty())
        drawMarks(picture, pixels.topLeft(), state, shot);
    picture.setDevicePixelRatio(shot.scale);
    return picture;
}

} // namespace Rendering
