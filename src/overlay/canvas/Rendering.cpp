#include "overlay/canvas/Rendering.h"

#include "base/ViewSpace.h"
#include "overlay/canvas/MarksLayer.h"

#include <QPainter>

namespace Rendering {

std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot, MarksLayer &marks)
{
    if (!state.selection || state.selection->width() < 1 || state.selection->height() < 1)
        return std::nullopt;
    const ViewSpace space(shot.pointSize, shot.scale);
    const QRect pixels = space.toPixels(*state.selection) & shot.image.rect();
    QImage picture = shot.image.copy(pixels);
    if (picture.isNull())
        return std::nullopt;
    {
        const QRect marked = pixels & space.toNearestPixels(*state.selection);
        marks.prepare(marked);
        QPainter painter(&picture);
        painter.translate(-pixels.topLeft());
        marks.draw(painter, marked);
    }
    picture.setDevicePixelRatio(shot.scale);
    return picture;
}

} // namespace Rendering
