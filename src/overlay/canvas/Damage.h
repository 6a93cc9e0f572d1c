#pragma once

#include "overlay/canvas/Chrome.h"

#include <QRectF>
#include <QRegion>

#include <optional>

class ViewSpace;

// Remembers what of the selection is on the screen, and so tells what a change of
// the selection makes different. Repainting the whole of a large screen would be
// felt in every step of a drag.
class Damage {
public:
    // Takes the space, which must outlive this object.
    explicit Damage(const ViewSpace &space) : m_space(space) {}

    // Returns what has to be painted so that the screen shows this scene, in widget
    // points. The region of the marks holds the device pixels on which they look
    // different; outside the selection marks never show.
    [[nodiscard]] QRegion follow(const Chrome::Scene &scene, const QRegion &marks);

private:
    const ViewSpace &m_space;
    std::optional<QRectF> m_selection; // view points
    QRegion m_chrome;                  // widget points
};
