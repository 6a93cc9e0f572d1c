#pragma once

#include <QPointF>

#include <optional>

// Keeps track of whether a colour is being picked from the screen, and where.
class Eyedropper {
public:
    [[nodiscard]] bool picking() const { return m_point.has_value(); }
    // Returns the view point under the loupe; absent while not picking.
    [[nodiscard]] std::optional<QPointF> pickPoint() const { return m_point; }

    void startPicking(QPointF at) { m_point = at; }
    void pointerMoved(QPointF to) { m_point = to; }
    void stop() { m_point.reset(); }

private:
    std::optional<QPointF> m_point;
};
