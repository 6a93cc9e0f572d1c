#pragma once

#include "base/ScreenShot.h"
#include "base/ViewSpace.h"
#include "halo/HaloView.h"
#include "marks/EditorState.h"
#include "overlay/bars/ToolBars.h"
#include "overlay/canvas/Backdrop.h"
#include "overlay/canvas/Chrome.h"
#include "overlay/canvas/Damage.h"
#include "overlay/canvas/MarksLayer.h"
#include "overlay/canvas/Notice.h"
#include "overlay/canvas/SnapFade.h"
#include "overlay/gestures/DrawingInput.h"
#include "overlay/gestures/Eyedropper.h"
#include "overlay/gestures/HoldToSnap.h"
#include "overlay/gestures/KeyCommands.h"
#include "overlay/gestures/SelectionDrag.h"
#include "overlay/gestures/WheelSteps.h"
#include "overlay/output/Output.h"
#include "overlay/text/TextEditing.h"

#include <QDeadlineTimer>
#include <QFutureWatcher>
#include <QPointF>
#include <QWidget>

class Desktop;
class OverlaySession;
class QSinglePointEvent;

// The editor on one screen. It receives the events, asks the collaborator whose
// turn it is, and repaints; the work is theirs.
class OverlayView final : public QWidget {
    Q_OBJECT

public:
    // The session and the desktop must outlive the view.
    OverlayView(ScreenShot shot, OverlaySession &session, Desktop &desktop, QWidget *parent = nullptr);
    ~OverlayView() override;

    [[nodiscard]] const EditorState &state() const { return m_state; }
    [[nodiscard]] const ScreenShot &shot() const { return m_shot; }
    // The region without any chrome; absent without a selection.
    // A text being typed becomes part of it.
    [[nodiscard]] std::optional<QImage> renderSelection();
    void copyImage();
    void saveImage();
    void printImage();
    void selectAll();
    // Discards the text being typed, or else takes the last step back.
    void undo();
    // Commits the text being typed, or else leaves without output.
    void cancel();

    // Chooses the tool, or none when it was chosen already.
    void toggleTool(Tool tool);
    void setColor(const QColor &color);
    void setLineWidth(double width); // points
    // The next click takes its colour off the screen.
    void startPicking();
    // Makes this screen's picture the one that mosaics on any screen are made of.
    void lendPicture();
    // Another screen has the selection now.
    void discardSelection();

    [[nodiscard]] const HaloView &halo() const { return m_halo; }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void startSelection(QPointF at);
    void pressInside(QPointF at);
    void startDrawing(QPointF at);
    void continueDrawing(QPointF to, Qt::KeyboardModifiers modifiers);
    void finishDrawing();
    void endGesture(QPointF at);
    void snapped(const ShapeRecognizer::Result &shape);
    void offerShapeHint();
    void moveLoupe(QPointF to);
    void takeColor(QPointF at);
    void stopPicking();
    void showWidth(QPointF at);
    void leave();
    void pressOutside(QPointF at);
    [[nodiscard]] bool refusedByPanel();
    void obey(const KeyCommands::Meaning &meaning);
    void run(Command command);
    void drawScreen(QPainter &painter, const QRegion &exposed);
    void drawInHand(QPainter &painter, const QRegion &exposed);
    [[nodiscard]] QRegion hiddenByMosaics() const;
    void endStaleFade();
    [[nodiscard]] QRegion followMarks();
    void sampleWidth(bool anew);
    void dimWhole();
    void copied();
    void refresh();
    void placeBars();
    void touch(const QRectF &area);
    void followPointer();
    [[nodiscard]] QPointF pointOf(const QSinglePointEvent &event) const;
    [[nodiscard]] Chrome::Scene scene() const;

    const ScreenShot m_shot;
    const ViewSpace m_space;
    Backdrop m_backdrop{m_shot};
    QFutureWatcher<QImage> m_dimming;
    MarksLayer m_marks{m_space};
    Damage m_damage{m_space};
    OverlaySession &m_session;
    Desktop &m_desktop;

    EditorState m_state;
    SelectionDrag m_selectionDrag{m_state};
    HaloView m_halo;
    DrawingInput m_drawing{m_state};
    HoldToSnap m_hold{m_state};
    SnapFade m_fade;
    TextEditing m_text{*this, m_space, m_state};
    Eyedropper m_eyedropper;
    WheelSteps m_wheel;
    ToolBars m_bars{*this, m_space, m_state};
    Notice m_widthSample{*this, m_space}; // above the bar, and so made after it
    Notice m_tip{*this, m_space};
    Output m_output;
    QPointF m_pointer;          // where it was last
    QDeadlineTimer m_copied{0}; // until when the feedback shows
    QPointF m_sampleAt;         // beside which the width is sampled
};
