#include "shapes/Resample.h"

#include "shapes/StrokeGeometry.h"
#include "shapes/Vectors.h"

namespace ShapeRecognizer {

namespace {

// Walks a path and leaves a mark every `interval`. It never makes more than
// `most` marks: where the coordinates are so coarse that an interval vanishes in
// them, it would otherwise not get ahead.
class Strider {
public:
    Strider(Point start, double interval, std::size_t most)
        : m_previous(start)
        , m_interval(interval)
        , m_most(most)
    {
        m_marks.reserve(most);
        m_marks.push_back(start);
    }

    void walkTo(Point p)
    {
        const double step = distance(m_previous, p);
        if (step > 0 && m_walked + step >= m_interval)
            m_walked = markUpTo(p, step);
        else
            m_walked += step;
        m_previous = p;
    }

    Points takeMarks() { return std::move(m_marks); }

private:
    // Returns what is left from the last mark to p.
    double markUpTo(Point p, double step)
    {
        Point mark = m_previous + ((m_interval - m_walked) / step) * (p - m_previous);
        add(mark);
        double rest = distance(mark, p);
        while (rest > 0 && rest >= m_interval && m_marks.size() < m_most) {
            mark = mark + (m_interval / rest) * (p - mark);
            add(mark);
            rest = distance(mark, p);
        }
        return rest;
    }

    void add(Point mark)
    {
        if (m_marks.size() < m_most)
            m_marks.push_back(mark);
    }

    Point m_previous;
    double m_interval;
    std::size_t m_most;
    double m_walked = 0; // since the last mark
    Points m_marks;
};

} // namespace

Points resample(std::span<const Point> points, std::size_t n)
{
    const double whole = pathLength(points);
    if (points.empty() || !(whole > 0) || n < 2)
        return {points.begin(), points.end()};
    Strider strider(points.front(), whole / static_cast<double>(n - 1), n);
    for (const Point p : points.subspan(1))
        strider.walkTo(p);
    Points marks = strider.takeMarks();
    marks.resize(n, points.back()); // rounding may have left the end out
    return marks;
}

} // namespace ShapeRecognizer
