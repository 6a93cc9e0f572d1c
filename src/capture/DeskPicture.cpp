#include "capture/DeskPicture.h"

#include <QPainter>

#include <algorithm>
#include <set>

namespace {

// A screen along one axis of the desk.
struct Span {
    int begin; // as the system counts
    int length;
    int pixels;

    [[nodiscard]] double density() const { return length > 0 ? double(pixels) / length : 1; }
    [[nodiscard]] bool covers(int place) const { return begin <= place && place < begin + length; }
};

// Pixels per unit between two neighbouring edges of screens. Where there is no screen
// it is as dense as anywhere.
double densityAt(int place, const std::vector<Span> &spans)
{
    double covered = 0;
    double anywhere = 0;
    for (const Span &span : spans) {
        anywhere = std::max(anywhere, span.density());
        if (span.covers(place))
            covered = std::max(covered, span.density());
    }
    return covered > 0 ? covered : anywhere;
}

// The pixel on which each screen begins.
std::vector<int> beginnings(const std::vector<Span> &spans)
{
    std::set<int> edges{0};
    for (const Span &span : spans)
        edges.insert({span.begin, span.begin + span.length});
    const auto pixelsTo = [&](int place) {
        double pixels = 0;
        for (auto from = edges.begin(), to = std::next(from); to != edges.end() && *to <= place; ++from, ++to)
            pixels += (*to - *from) * densityAt(*from, spans);
        return pixels;
    };
    std::vector<int> all;
    for (const Span &span : spans)
        all.push_back(qRound(pixelsTo(span.begin) - pixelsTo(0)));
    return all;
}

} // namespace

DeskPicture::DeskPicture(std::vector<ScreenShot> shots)
{
    std::vector<Span> across;
    std::vector<Span> down;
    for (const ScreenShot &shot : shots) {
        across.push_back({shot.place.x(), shot.place.width(), shot.image.width()});
        down.push_back({shot.place.y(), shot.place.height(), shot.image.height()});
    }
    const auto lefts = beginnings(across);
    const auto tops = beginnings(down);
    for (size_t i = 0; i < shots.size(); ++i) {
        const QRect area(QPoint(lefts[i], tops[i]), shots[i].image.size());
        m_parts.push_back({area, std::move(shots[i].image), shots[i].scale});
    }
}

QRect DeskPicture::area() const
{
    QRect all;
    for (const Part &part : m_parts)
        all |= part.area;
    return all;
}

bool DeskPicture::shows(const QRect &region) const
{
    return std::ranges::any_of(m_parts, [&](const Part &part) { return part.area.intersects(region); });
}

QImage DeskPicture::cut(const QRect &region) const
{
    for (const Part &part : m_parts) {
        if (part.area == region)
            return part.image;
        if (part.area.contains(region))
            return part.image.copy(region.translated(-part.area.topLeft()));
    }
    QImage picture(region.size(), QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const Part &part : m_parts)
        painter.drawImage(part.area.topLeft() - region.topLeft(), part.image);
    return picture;
}

double DeskPicture::scaleOf(const QRect &region) const
{
    std::set<double> scales;
    for (const Part &part : m_parts)
        if (part.area.intersects(region))
            scales.insert(part.scale);
    return scales.size() == 1 ? *scales.begin() : 1;
}
