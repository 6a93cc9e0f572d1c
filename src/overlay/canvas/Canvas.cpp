#include "overlay/canvas/Canvas.h"

#include "base/Bands.h"
#include "base/Painting.h"
#include "base/Raster.h"
#include "marks/EditorState.h"
#include "marks/MarkFootprint.h"
#include "overlay/canvas/Loupe.h"
#include "overlay/canvas/Rendering.h"
#include "toolbar/Bar.h"

#include <QGraphicsEffect>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto copiedShows = 1s;

// What a child of a widget paints, in the widget's points: some have a shadow.
QRect reachOf(const QWidget &child)
{
    const QGraphicsEffect *effect = child.graphicsEffect();
    const QRectF reach = effect ? effect->boundingRectFor(child.rect()) : QRectF(child.rect());
    return reach.toAlignedRect().translated(child.pos());
}

} // namespace

Canvas::Canvas(QWidget &widget, const ScreenShot &shot, const ViewSpace &space, const EditorState &state,
               const std::function<bool()> &reduceMotion)
    : m_widget(widget)
    , m_shot(shot)
    , m_space(space)
    , m_state(state)
    , m_reduceMotion(reduceMotion)
    , m_halo(shot.pointSize, shot.scale, reduceMotion)
{
    lendPicture();
    m_widget.update(m_damage.follow(scene(), {}));
    m_halo.onFrame = [this](const QRegion &area) { m_widget.update(area); };
    m_fade.onFrame = [this](const QRectF &area) {
        touch(area);
        if (!m_fade.running()) // the mark is among the others now
            refresh();
    };
    m_halo.setGround([this](const QRect &pixels) { return m_backdrop.dimmed(pixels); });
}

void Canvas::lendPicture()
{
    Annotation::background = m_shot.image;
    Annotation::backgroundScale = m_shot.scale;
    Annotation::viewHeight = m_shot.pointSize.height();
}

Canvas::~Canvas()
{
    // A picture of the screen is not kept longer than it is looked at.
    if (Annotation::background.cacheKey() == m_shot.image.cacheKey())
        Annotation::background = {};
}

std::optional<QImage> Canvas::render()
{
    m_fade.stop();
    refresh();
    return Rendering::renderSelection(m_state, m_shot, m_marks);
}

Chrome::Scene Canvas::scene() const
{
    return {.state = m_state,
            .scale = m_shot.scale,
            .haloShows = !m_halo.isHidden(),
            .justCopied = !m_copied.hasExpired(),
            .framed = !m_halo.isHidden() && m_halo.covered().isEmpty() && !busy()};
}

void Canvas::refresh()
{
    endStaleFade();
    m_halo.update(m_state.selection);
    m_widget.update(m_damage.follow(scene(), followMarks()) + m_gripFrame.follow(m_state));
}

void Canvas::followGrip()
{
    endStaleFade();
    const QRegion selected(m_space.around(*m_state.selection));
    m_widget.update((m_space.widgetPointsOf(followMarks()) & selected) + m_gripFrame.follow(m_state));
}

// The mark that was taken up, as it was before.
AnnotationPtr Canvas::lifted() const
{
    const auto &grip = m_state.grip;
    return grip && grip->held ? m_state.annotations[grip->place] : nullptr;
}

// A mark that was moved, undone or taken over is drawn like the others.
void Canvas::endStaleFade()
{
    const AnnotationPtr away = lifted();
    const auto fades = [&](const AnnotationPtr &mark) { return mark != away && m_fade.draws(*mark); };
    const bool inHand = m_state.current && m_fade.draws(*m_state.current);
    if (!inHand && std::ranges::none_of(m_state.annotations, fades))
        m_fade.stop();
}

// Returns on which pixels the finished marks look different.
QRegion Canvas::followMarks()
{
    std::vector<AnnotationPtr> marks = m_state.drawOrder();
    const AnnotationPtr away = lifted();
    std::erase_if(marks, [&](const AnnotationPtr &mark) { return mark == away || m_fade.draws(*mark); });
    std::vector<AnnotationPtr> inHand;
    if (away)
        inHand.push_back(std::make_shared<Annotation>(*m_state.gripped()));
    const MarksLayer::Change change = m_marks.follow(marks);
    m_standing.lose(change.drawn);
    if (!change.drawn.isEmpty() && m_standing.shift() != m_marks.shift())
        m_standing.loseAll(); // what has gone still shows somewhere else
    return change.all() + m_inHand.follow(inHand).all();
}

void Canvas::touch(const QRectF &area) { m_widget.update(m_space.around(area, 1)); }

void Canvas::showEdges(std::optional<QPointF> at)
{
    for (const auto &place : {m_edges, at})
        if (place)
            touch(Loupe::area(*place));
    m_edges = at;
}

void Canvas::touchMark(const Annotation &mark) { m_widget.update(MarkFootprint::of(mark, m_space)); }

void Canvas::strokeGrew(const Annotation &stroke)
{
    m_marks.prepareFor(stroke);
    m_widget.update(MarkFootprint::ofLastStep(stroke, m_space));
}

void Canvas::showSnap(const Annotation &mark)
{
    touch(SnapFade::area(mark));
    if (!m_reduceMotion())
        m_fade.start(mark);
}

void Canvas::showCopied()
{
    m_copied.setRemainingTime(copiedShows);
    refresh();
    m_halo.pulse(Pulse::strong);
    QTimer::singleShot(copiedShows, &m_widget, [this] { refresh(); });
}

void Canvas::paint(QPainter &painter, const QRegion &exposed, std::optional<QPointF> picked, Bar &bar)
{
    bar.leaveOut({});     // it was not painted after all
    if (isWhole(exposed)) // perhaps of a window whose memory is another
        m_standing.loseAll();
    const QRegion uncovered = m_space.pixelsOf(exposed - m_halo.covered());
    if (!uncovered.isEmpty()) // it is while the glow only turns
        drawScreen(painter, uncovered, picked ? QRegion() : bare(), bar);
    m_halo.drawCovered(painter, exposed);
    painter.setTransform(m_space.upwards(), true);
    if (m_state.selection)
        drawInHand(painter, exposed);
    m_gripFrame.draw(painter);
    Chrome::draw(painter, scene(), exposed);
    if (picked)
        Loupe::draw(painter, m_shot, *picked);
    if (m_edges && m_state.selection)
        Loupe::drawEdges(painter, m_shot, *m_edges, m_space.toNearestPixels(*m_state.selection));
}

// Children may have been left out, because they cover what is beneath.
bool Canvas::isWhole(const QRegion &exposed) const
{
    const QRect all = m_widget.rect();
    return exposed.boundingRect() == all && (QRegion(all) - exposed - m_widget.childrenRegion()).isEmpty();
}

// The frozen screen and the finished marks, which never show outside the selection.
void Canvas::drawScreen(QPainter &painter, const QRegion &exposed, const QRegion &bare, Bar &bar)
{
    const Painting::Saved saved(painter);
    painter.scale(1 / m_shot.scale, 1 / m_shot.scale); // from here on in pixels
    if (m_state.selection)
        drawSelected(painter, exposed, bar);
    else
        Bands::fill(painter, exposed, [&](const Raster &raster, const QRegion &band) {
            m_backdrop.fill(raster, {}, band);
            m_halo.tint(raster, band);
        });
    m_standing.painted(painter, exposed, bare, m_marks.shift());
}

void Canvas::drawSelected(QPainter &painter, const QRegion &exposed, Bar &bar)
{
    const QRect selected = m_space.toNearestPixels(*m_state.selection);
    const std::optional<Tessera> mosaic = mosaicInHand();
    QRegion hidden = m_marks.covered() + m_inHand.covered();
    if (mosaic)
        hidden += Mosaic::covered(mosaic->place);
    hidden &= selected;
    m_marks.prepare(exposed & selected);
    m_inHand.prepare(exposed & selected);
    const QRegion standing = (m_standing.on(painter) & selected & m_shot.image.rect()) - hidden;
    const QPoint way = m_marks.shift() - m_standing.shift();
    const bool carries = lifted() != nullptr;
    const Chrome::Scene now = scene();
    const auto frame = now.framed ? std::optional<Chrome::Frame>(now) : std::nullopt;
    const QRegion barred = exposed & openTo(bar, painter, now);
    Bands::fill(painter, exposed, [&](const Raster &raster, const QRegion &band) {
        // Regions of many rectangles are quick to cut by one, and slow by each other.
        const QRect box = band.boundingRect();
        const QRegion stands = standing & box;
        const QRegion anew = band - stands;
        m_backdrop.fill(raster, selected, anew - (hidden & box));
        m_marks.draw(raster, anew & selected);
        if (!way.isNull())
            m_marks.drawMoved(raster, m_shot.image, band & stands, way);
        m_halo.tint(raster, anew - selected);
        if (frame) {
            frame->drawOutline(raster, band);
            frame->drawSprites(raster, band);
        }
        if (carries)
            m_inHand.draw(raster, band & selected);
        if (mosaic)
            for (const QRect &rect : band &selected)
                mosaic->mosaic.fill(raster, mosaic->place, rect);
        if (barred.intersects(box))
            bar.blend(raster, band & barred);
    });
    bar.leaveOut(barred);
}

// Where nothing that is still to be painted comes between what the bands hold and the bar: not
// where the glow is kept, whose edge may lie within a pixel. Only in the window, where the
// bar is sure to be painted next.
QRegion Canvas::openTo(const Bar &bar, const QPainter &painter, const Chrome::Scene &now) const
{
    if (busy() || !Bands::lasting(painter, m_widget.backingStore()))
        return {};
    QRegion between = m_halo.covered() + m_space.around(Chrome::productBadge(m_state.bounds), 1);
    if (!now.framed)
        between += Chrome::footprint(now, m_space);
    return QRegion(bar.pictured(m_shot.scale)) - m_space.pixelsOf(between);
}

void Canvas::paintedOver(const QWidget &child) { m_standing.lose(m_space.pixelsOf(reachOf(child))); }

// Whether something is painted over the finished marks that comes and goes.
bool Canvas::busy() const { return m_state.current || m_state.grip || m_fade.running() || m_edges; }

// Where nothing shows but the screen and the drawn marks, in device pixels.
QRegion Canvas::bare() const
{
    if (!m_state.selection || busy())
        return {};
    QRegion over
        = Chrome::footprint(scene(), m_space) + m_space.around(Chrome::productBadge(m_state.bounds), 1);
    for (const QObject *object : m_widget.children())
        if (const auto *child = qobject_cast<const QWidget *>(object); child && child->isVisible())
            over += reachOf(*child);
    return QRegion(m_space.toNearestPixels(*m_state.selection)) - m_space.pixelsOf(over) - m_marks.covered();
}

// It has no soft edges, and may be large: several threads write it.
std::optional<Tessera> Canvas::mosaicInHand() const
{
    const auto &mark = m_state.current;
    if (!mark || mark->tool != Tool::pixelate)
        return std::nullopt;
    Tessera tessera{Mosaic(*mark), m_space.toDevice(mark->rectFromPoints())};
    return tessera.mosaic.isNull() ? std::nullopt : std::optional(std::move(tessera));
}

void Canvas::drawInHand(QPainter &painter, const QRegion &exposed)
{
    const Painting::Saved saved(painter);
    painter.setClipRect(*m_state.selection, Qt::IntersectClip);
    const QRectF part = m_space.fromWidget(QRectF(exposed.boundingRect()));
    if (m_fade.running())
        m_fade.draw(painter, part);
    const auto &mark = m_state.current;
    if (mark && mark->tool != Tool::pixelate && !m_fade.draws(*mark))
        mark->draw(painter, part);
}
