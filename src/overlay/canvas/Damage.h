#pragma once

#include "overlay/canvas/Chrome.h"

#include <QRectF>
#include <QRegion>

#include <optional>

class ViewSpace;

// Remembers what of the selection is on the screen, and so tells what a change of
// it makes different: on a large screen a whole repaint would be felt in every
// step of a drag.
class Damage {
public:
    // The space must outlive it.
    explicit Damage(const ViewSpace &space) : m_space(space) {}

    // Returns what has to be painted so that the screen shows this scene, widget
    // points. The marks are those device pixels on which marks look different; outside the
    // selection they never show.
    [[nodiscard]] QRegion follow(const Chrome::Scene &scene, const QRegion &marks);

private:
    const ViewSpace &m_space;
    std::optional<QRectF> m_selection; // view points
    QRegion m_chrome;                  // widget points
};
