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

// In device pixels, y downwards.
QRegion outlineOf(const Chrome::Scene &scene, const ViewSpace &space)
{
    const QRectF &selection = *scene.state.selection;
    return QRegion(space.toNearestPixels(selection)) - space.toNearestPixels(grown(selection, -1));
}

void drawOutline(QPainter &painter, const Chrome::Scene &scene)
{
    const ViewSpace space(scene.state.bounds.size(), scene.scale);
    const Saved saved(painter);
    painter.setTransform(space.upwards(), true);     // turned over once more
    painter.scale(1 / scene.scale, 1 / scene.scale); // from here on in pixels
    Bands::blend(painter, outlineOf(scene, space), [&scene](const Raster &raster, const QRegion &band) {
        Chrome::outline(raster, band, scene);
    });
}

void drawHandles(QPainter &painter, const Chrome::Scene &scene)
{
    for (const QPointF handle : SelectionGeometry::handlePoints(*scene.state.selection))
        HandleSprite::draw(painter, handle, scene.scale);
}

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
// and while that is moved they stay the same. Where the pixels lie is rounded.
void drawSizeBadge(QPainter &painter, const Chrome::Scene &scene)
{
    static QString lastLook;
    static QImage picture; // of the last look
    const QRectF badge = sizeBadgeOf(scene);
    const Label label = sizeLabel(scene);
    const QString look = QStringLiteral("%1 %2 %3").arg(label.text, label.font.key()).arg(scene.scale);
    if (std::exchange(lastLook, look) != look)
        picture = badgePicture(label, (badge.size() * scene.scale).toSize(), scene.scale);
    const Saved saved(painter);
    const QPointF upperLeft = painter.worldTransform().map(QPointF(minX(badge), maxY(badge)));
    painter.setWorldTransform(QTransform::fromScale(1 / scene.scale, 1 / scene.scale));
    painter.drawImage((upperLeft * scene.scale).toPoint(), picture);
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

void drawSelectionChrome(QPainter &painter, const Chrome::Scene &scene, const QRegion &exposed)
{
    const QRectF &selection = *scene.state.selection;
    if (!scene.outlined)
        drawOutline(painter, scene);
    if (!scene.haloShows)
        DashedFrame::draw(painter, grown(selection, 0.5), Theme::selectionBorder);
    drawHandles(painter, scene);
    if (exposed.intersects(spill(sizeBadgeOf(scene), ViewSpace(scene.state.bounds.size(), scene.scale))))
        drawSizeBadge(painter, scene);
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
    if (scene.state.selection)
        drawSelectionChrome(painter, scene, exposed);
    else
        drawHint(painter, scene.state.bounds);
    const ViewSpace space(scene.state.bounds.size(), scene.scale);
    if (exposed.intersects(spill(productBadge(scene.state.bounds), space)))
        drawBrand(painter, scene.state.bounds);
}

// Row by row: every row of the upright lines is on another page of the memory, and a
// painter would wait for one after the other.
void outline(const Raster &raster, const QRegion &pixels, const Scene &scene)
{
    const ViewSpace space(scene.state.bounds.size(), scene.scale);
    for (const QRect &rect : pixels &outlineOf(scene, space))
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            PixelRows::blend(raster.at(rect.left(), y), outlineColor, rect.width());
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
