#pragma once

#include <QEasingCurve>
#include <QPointF>

// Provides the usual animation curves: cubic Bézier curves from (0, 0) to (1, 1).
namespace Easing {

[[nodiscard]] inline QEasingCurve bezier(QPointF first, QPointF second)
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment(first, second, {1, 1});
    return curve;
}

[[nodiscard]] inline QEasingCurve out() { return bezier({0, 0}, {0.58, 1}); }
[[nodiscard]] inline QEasingCurve inOut() { return bezier({0.42, 0}, {0.58, 1}); }

} // namespace Easing
