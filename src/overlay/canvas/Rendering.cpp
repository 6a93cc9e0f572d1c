#include "overlay/canvas/Rendering.h"

#include "base/ViewSpace.h"
#include "overlay/canvas/MarksLayer.h"

#include <QPainter>

namespace {

constexpr double smallestSide = 1 - 1e-6; // points; three thirds are not quite one

} // namespace

namespace Rendering {

bool canBeRendered(const QRectF &selection)
{
    return selection.width() >= smallestSide && selection.height() >= smallestSide;
}

std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot, MarksLayer &marks)
{
    if (!state.selection || !canBeRendered(*state.selection))
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
