#include "overlay/Rendering.h"

#include "base/ViewSpace.h"

namespace Rendering {

std::optional<QImage> renderSelection(const EditorState &state, const ScreenShot &shot)
{
    if (!state.selection || state.selection->width() < 1 || state.selection->height() < 1)
        return std::nullopt;
    const QRect pixels = ViewSpace(shot.pointSize).toPixels(*state.selection, shot.scale);
    QImage picture = shot.image.copy(pixels & shot.image.rect());
    if (picture.isNull())
        return std::nullopt;
    picture.setDevicePixelRatio(shot.scale);
    return picture;
}

} // namespace Rendering
