#pragma once

#include "base/ScreenShot.h"
#include "halo/HaloView.h"
#include "overlay/canvas/Backdrop.h"
#include "overlay/canvas/Chrome.h"
#include "overlay/canvas/Damage.h"
#include "overlay/canvas/GripFrame.h"
#include "overlay/canvas/MarksLayer.h"
#include "overlay/canvas/SnapFade.h"
#include "overlay/canvas/StandingPaint.h"

#include <QDeadlineTimer>
#include <QPointF>
#include <QRectF>

#include <functional>
#include <optional>

class Bar;
class QPainter;
class QWidget;
struct EditorState;

// Paints what an editor shows below its bars and panels: the frozen screen, the marks,
// the glow, the frame of the selection and the loupe. It repaints what a change of
// the state has made different, and nothing else. Areas are in view points.
class Canvas {
public:
    // The widget is the one to paint on; it, the shot, the space and the state must
    // outlive the canvas.
    Canvas(QWidget &widget, const ScreenShot &shot, const ViewSpace &space, const EditorState &state,
           const std::function<bool()> &reduceMotion);
    ~Canvas();
    Q_DISABLE_COPY_MOVE(Canvas)

    // Paints that part of the widget (widget points), with the loupe over the point
    // that is being picked, if one is. Of the bar, which is painted next, it blends what
    // it can.
    void paint(QPainter &painter, const QRegion &exposed, std::optional<QPointF> picked, Bar &bar);
    // Returns the selection as it is copied, without any chrome; absent when there is
    // none or it is too small.
    [[nodiscard]] std::optional<QImage> render();

    // Notes that a child of the widget has painted where it is now, or is going to.
    void paintedOver(const QWidget &child);

    // Makes this screen's picture the one that mosaics on any screen are made of.
    void lendPicture();

    // Follows a change of the state.
    void refresh();
    // Follows the grip alone, which a step of the pointer changes.
    void followGrip();
    // Repaints that area, and what a soft edge may spill over.
    void touch(const QRectF &area);
    // Shows the loupe over an edge of the selection that is being put there, or no
    // longer.
    void showEdges(std::optional<QPointF> at);
    [[nodiscard]] bool showsEdges() const { return m_edges.has_value(); }
    // Repaints where the mark in hand is. To be called before and after it changes.
    void touchMark(const Annotation &mark);
    // Repaints what the last step of a freehand stroke has added to it.
    void strokeGrew(const Annotation &stroke);

    // Fades from the hand's stroke to the shape that it has just become, or shows the
    // shape at once where there is to be no motion.
    void showSnap(const Annotation &mark);
    // Flashes, and says for a second that the picture has been copied.
    void showCopied();

    [[nodiscard]] HaloView &halo() { return m_halo; }
    [[nodiscard]] const HaloView &halo() const { return m_halo; }

private:
    void endStaleFade();
    void drawScreen(QPainter &painter, const QRegion &exposed, const QRegion &bare, Bar &bar);
    void drawSelected(QPainter &painter, const QRegion &exposed, Bar &bar);
    [[nodiscard]] QRegion openTo(const Bar &bar, const QPainter &painter, const Chrome::Scene &now) const;
    [[nodiscard]] bool busy() const;
    [[nodiscard]] bool isWhole(const QRegion &exposed) const;
    [[nodiscard]] QRegion bare() const;
    void drawInHand(QPainter &painter, const QRegion &exposed);
    [[nodiscard]] AnnotationPtr lifted() const;
    [[nodiscard]] QRegion followMarks();
    [[nodiscard]] std::optional<Tessera> mosaicInHand() const;
    [[nodiscard]] Chrome::Scene scene() const;

    QWidget &m_widget;
    const ScreenShot &m_shot;
    const ViewSpace &m_space;
    const EditorState &m_state;
    const std::function<bool()> m_reduceMotion;
    Backdrop m_backdrop{m_shot};
    MarksLayer m_marks{m_space};
    MarksLayer m_inHand{m_space}; // the mark that was taken up, which moves while the others stay
    GripFrame m_gripFrame{m_space};
    Damage m_damage{m_space};
    StandingPaint m_standing{m_widget};
    HaloView m_halo;
    SnapFade m_fade;
    std::optional<QPointF> m_edges; // what the loupe over the edges is about
    QDeadlineTimer m_copied{0};     // until when the feedback shows
};
