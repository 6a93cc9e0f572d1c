#pragma once

#include <QPointF>
#include <QRect>

#include <optional>
#include <vector>

// Tells a double click where nothing is selected from everything else that begins
// with a press there. It counts when its second press is let go, because that one may
// also begin a drag.
class WindowPick {
public:
    // A press of which a double click may consist, at this view point.
    void press(QPointF at) { m_press = at; }
    // The next press is the second of a double click.
    void expectSecond() { m_second = m_clicked; }
    void pointerMoved(QPointF to);

    // Ends the press. Returns where the double click was that it completes.
    std::optional<QPointF> release();

    // Returns the first frame that holds the pixel.
    [[nodiscard]] static std::optional<QRect> frameAt(const std::vector<QRect> &frames, QPoint pixel);

private:
    std::optional<QPointF> m_press; // present while the press may be one of a double click
    bool m_clicked = false;         // the last gesture was such a press, and let go
    bool m_second = false;
};
