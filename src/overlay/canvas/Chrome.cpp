#include "overlay/canvas/Chrome.h"

#include "base/Bands.h"
#include "base/Fonts.h"
#include "base/Painting.h"
#include "base/PixelRows.h"
#include "base/Raster.h"
#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "l10n/L10n.h"
#include "marks/SelectionGeometry.h"
#include "overlay/canvas/DashedFrame.h"
#include "overlay/canvas/HandleSprite.h"
#include "toolbar/Theme.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

using Painting::Label;
using Painting::Saved;

namespace {

constexpr double badgeFontSize = 11; // points
constexpr double hintFontSize = 13;
constexpr double hintRadius = 8;
constexpr double brandMargin = 16; // from the corner of the screen
constexpr double brandKern = 2.2;
constexpr QSizeF badgePadding{8, 3}; // on each side of the text
constexpr QSizeF hintPadding{12, 6};
constexpr QSizeF brandPadding{14, 4};
constexpr double badgeAbove = 10;  // the selection
constexpr double badgeRoom = 8;    // more than its text's height is kept free above it
constexpr double badgeInside = 6;  // the selection, from its edges, where there is no room above
constexpr double lineReach = 1;    // of the frame's lines, from the edge
constexpr double antialiasing = 1; // what a soft edge may spill over

const QRgb outlineColor = qPremultiply(QColor::fromRgbF(0, 0, 0, 0.35F).rgba());

QSizeF padded(QSizeF text, QSizeF padding) { return text + 2 * padding; }

QPointF textOrigin(const QRectF &badge, QSizeF padding)
{
    return badge.topLeft() + QPointF(padding.width(), padding.height());
}

ViewSpace spaceOf(const Chrome::Scene &scene) { return ViewSpace(scene.state.bounds.size(), scene.scale); }

Label sizeLabel(const Chrome::Scene &scene)
{
    return {.text = scene.justCopied ? L10n::t(u"Copiado ✓")
                                     : Chrome::sizeText(*scene.state.selection, scene.scale),
            .font = Fonts::system(badgeFontSize, QFont::Medium),
            .digits = Painting::Digits::sameWidth};
}

QRectF sizeBadgeOf(const Chrome::Scene &scene)
{
    return Chrome::sizeBadge(*scene.state.selection, Painting::sizeOf(sizeLabel(scene)), scene.state.bounds);
}

QImage badgePicture(const Label &label, QSize pixels, double scale)
{
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    Painting::drawPill(painter, QRectF({}, QSizeF(pixels) / scale), Theme::badgeBackground, Theme::barBorder);
    Painting::drawTextDownwards(painter, {badgePadding.width(), badgePadding.height()}, label);
    return picture;
}

// Its text and its round ends cost more than all else that is drawn round a selection,
// and while that is moved they stay the same.
QImage sizeBadgePicture(const Chrome::Scene &scene)
{
    static QString lastLook;
    static QImage picture; // of the last look
    const Label label = sizeLabel(scene);
    const QString look = QStringLiteral("%1 %2 %3").arg(label.text, label.font.key()).arg(scene.scale);
    if (std::exchange(lastLook, look) != look)
        picture = badgePicture(label, (sizeBadgeOf(scene).size() * scene.scale).toSize(), scene.scale);
    return picture;
}

Label hintLabel()
{
    return {.text = L10n::t(u"Arrastra para seleccionar · Intro copia · Esc sale"),
            .font = Fonts::system(hintFontSize, QFont::Medium)};
}

QRectF hintBadge(const QRectF &bounds)
{
    const QSizeF size = padded(Painting::sizeOf(hintLabel()), hintPadding);
    return {{midX(bounds) - size.width() / 2, midY(bounds) - size.height() / 2}, size};
}

void drawHint(QPainter &painter, const QRectF &bounds)
{
    const QRectF badge = hintBadge(bounds);
    Painting::drawPanel(painter, badge, hintRadius, Theme::badgeBackground);
    Painting::drawText(painter, textOrigin(badge, hintPadding), hintLabel());
}

Label brandName()
{
    QFont font = Fonts::system(hintFontSize, QFont::ExtraBold);
    font.setLetterSpacing(QFont::AbsoluteSpacing, brandKern);
    return {.text = QStringLiteral("VELLUMORA"), .font = font};
}

Label brandMaker()
{
    return {.text = QStringLiteral("  by KLV"),
            .font = Fonts::system(badgeFontSize, QFont::Medium),
            .color = QColor::fromRgbF(1, 1, 1, 0.7F)};
}

// Both words stand on the base line of the larger one.
void drawBrand(QPainter &painter, const QRectF &bounds)
{
    const QRectF pill = Chrome::productBadge(bounds);
    Painting::drawPill(painter, pill, Theme::barBackground, Theme::barBorder);
    const Label name = brandName();
    const Label maker = brandMaker();
    const QPointF at = textOrigin(pill, brandPadding);
    const double baseline = QFontMetricsF(name.font).descent() - QFontMetricsF(maker.font).descent();
    Painting::drawText(painter, at, name);
    Painting::drawText(painter, at + QPointF{Painting::sizeOf(name).width(), baseline}, maker);
}

QRect spill(const QRectF &rect, const ViewSpace &space) { return space.around(rect, antialiasing); }

void blend(QPainter &painter, const Chrome::Scene &scene, const QRegion &pixels, const Bands::Fill &draw)
{
    const Saved saved(painter);
    painter.setTransform(spaceOf(scene).upwards(), true); // turned over once more
    painter.scale(1 / scene.scale, 1 / scene.scale);      // from here on in pixels
    Bands::blend(painter, pixels, draw);
}

void drawSelectionChrome(QPainter &painter, const Chrome::Scene &scene)
{
    const Chrome::Frame frame(scene);
    blend(painter, scene, frame.outline(),
          [&](const Raster &raster, const QRegion &band) { frame.drawOutline(raster, band); });
    if (!scene.haloShows)
        DashedFrame::draw(painter, grown(*scene.state.selection, 0.5), Theme::selectionBorder);
    blend(painter, scene, frame.sprites(),
          [&](const Raster &raster, const QRegion &band) { frame.drawSprites(raster, band); });
}

// The lines on both sides of the selection's edge.
QRegion frameBand(const QRectF &selection, const ViewSpace &space)
{
    const QRegion outside(spill(grown(selection, lineReach), space));
    const QRectF inside = grown(selection, -lineReach - 2 * antialiasing);
    return inside.isValid() ? outside.subtracted(space.toWidget(inside).toRect()) : outside;
}

QRegion handles(const QRectF &selection, const ViewSpace &space)
{
    QRegion region;
    for (const QPointF handle : SelectionGeometry::handlePoints(selection))
        region += spill(squareAround(handle, 2 * HandleSprite::reach), space);
    return region;
}

} // namespace

namespace Chrome {

void draw(QPainter &painter, const Scene &scene, const QRegion &exposed)
{
    if (!scene.state.selection)
        drawHint(painter, scene.state.bounds);
    else if (!scene.framed)
        drawSelectionChrome(painter, scene);
    if (exposed.intersects(spill(productBadge(scene.state.bounds), spaceOf(scene))))
        drawBrand(painter, scene.state.bounds);
}

// The places of the pictures are rounded to whole pixels.
Frame::Frame(const Scene &scene)
{
    const ViewSpace space = spaceOf(scene);
    const QRectF &selection = *scene.state.selection;
    m_outline = QRegion(space.toNearestPixels(selection)) - space.toNearestPixels(grown(selection, -1));
    const QImage &handle = HandleSprite::picture(scene.scale);
    for (const QPointF at : SelectionGeometry::handlePoints(selection)) {
        const QPoint middle = (space.upwards().map(at) * scene.scale).toPoint();
        m_sprites.push_back({middle - QPoint(handle.width() / 2, handle.height() / 2), handle});
    }
    m_sprites.push_back({space.toDevice(sizeBadgeOf(scene)).topLeft().toPoint(), sizeBadgePicture(scene)});
}

QRegion Frame::sprites() const
{
    QRegion region;
    for (const Sprite &sprite : m_sprites)
        region += sprite.place();
    return region;
}

void Frame::drawOutline(const Raster &raster, const QRegion &part) const
{
    for (const QRect &rect : part &m_outline)
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            PixelRows::blend(raster.at(rect.left(), y), outlineColor, rect.width());
}

void Frame::drawSprites(const Raster &raster, const QRegion &part) const
{
    for (const Sprite &sprite : m_sprites)
        for (const QRect &rect : part &sprite.place())
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                const uchar *line = sprite.picture.constScanLine(y - sprite.upperLeft.y());
                PixelRows::blend(raster.at(rect.left(), y),
                                 reinterpret_cast<const QRgb *>(line) + rect.left() - sprite.upperLeft.x(),
                                 rect.width());
            }
}

QRegion footprint(const Scene &scene, const ViewSpace &space)
{
    if (!scene.state.selection)
        return spill(hintBadge(scene.state.bounds), space);
    const QRectF &selection = *scene.state.selection;
    return frameBand(selection, space) + handles(selection, space) + spill(sizeBadgeOf(scene), space);
}

QRectF sizeBadge(const QRectF &selection, QSizeF text, const QRectF &bounds)
{
    const QSizeF size = padded(text, badgePadding);
    const double above = maxY(selection) + badgeAbove;
    if (maxY(bounds) >= above + text.height() + badgeRoom)
        return {{minX(selection), above}, size};
    return {{minX(selection) + badgeInside, maxY(selection) - size.height() - badgeInside}, size};
}

QRectF productBadge(const QRectF &bounds)
{
    const Label label = brandName();
    static QFont font; // of the size, which costs more to find out
    static QSizeF size;
    if (size.isEmpty() || font != label.font) {
        const QSizeF name = Painting::sizeOf(label);
        size = padded({name.width() + Painting::sizeOf(brandMaker()).width(), name.height()}, brandPadding);
        font = label.font;
    }
    return {{maxX(bounds) - size.width() - brandMargin, brandMargin}, size};
}

QString sizeText(const QRectF &selection, double scale)
{
    return QStringLiteral("%1 × %2")
        .arg(std::lround(selection.width() * scale))
        .arg(std::lround(selection.height() * scale));
}

} // namespace Chrome
