#include "overlay/canvas/Damage.h"

#include "base/ViewSpace.h"

#include <utility>

QRegion Damage::follow(const Chrome::Scene &scene, const QRegion &marks)
{
    const auto area = [this](const std::optional<QRectF> &selection) {
        return selection ? QRegion(m_space.around(*selection)) : QRegion();
    };
    const QRegion before = area(std::exchange(m_selection, scene.state.selection));
    const QRegion now = area(m_selection);
    const QRegion chrome = Chrome::footprint(scene, m_space);
    const QRegion chromes = std::exchange(m_chrome, chrome) + chrome;
    return chromes + before.xored(now) + (m_space.widgetPointsOf(marks) & (before + now));
}
