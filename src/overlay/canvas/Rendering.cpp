#include "overlay/canvas/Rendering.h"

#include "base/PixelRows.h"
#include "base/Raster.h"
#include "base/ViewSpace.h"
#include "overlay/canvas/MarksLayer.h"

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
    QImage picture = PixelRows::part(shot.image, pixels);
    if (picture.isNull())
        return std::nullopt;
    const QRect marked = pixels & space.toNearestPixels(*state.selection);
    marks.prepare(marked);
    marks.draw(Raster(picture, pixels.topLeft()), marked);
    picture.setDevicePixelRatio(shot.scale);
    return picture;
}

} // namespace Rendering
