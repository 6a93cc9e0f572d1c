#pragma once

#include "access/Announcer.h"
#include "base/ScreenShot.h"
#include "base/ViewSpace.h"
#include "marks/EditorState.h"
#include "overlay/bars/ToolBars.h"
#include "overlay/canvas/Canvas.h"
#include "overlay/canvas/Notice.h"
#include "overlay/canvas/WidthSample.h"
#include "overlay/gestures/DrawingInput.h"
#include "overlay/gestures/Eyedropper.h"
#include "overlay/gestures/HoldToSnap.h"
#include "overlay/gestures/KeyCommands.h"
#include "overlay/gestures/MarkGrab.h"
#include "overlay/gestures/SelectionDrag.h"
#include "overlay/gestures/WheelSteps.h"
#include "overlay/gestures/WindowPick.h"
#include "overlay/output/Output.h"
#include "overlay/text/TextEditing.h"

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
    // Returns the selected region without any chrome; absent without a selection.
    // Commits the text being typed, so that it becomes part of the picture.
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
    // Makes the next click take its colour off the screen.
    void startPicking();
    // Makes this screen's picture the one that mosaics on any screen are made of.
    void lendPicture();
    // Gives the selection up, because another screen has it now.
    void discardSelection();

    [[nodiscard]] const HaloView &halo() const { return m_canvas.halo(); }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void startSelection(QPointF at);
    [[nodiscard]] bool selectWindow();
    void pressInside(QPointF at);
    void startDrawing(QPointF at);
    void continueDrawing(QPointF to, Qt::KeyboardModifiers modifiers);
    void finishDrawing();
    void finishSelecting();
    void endGesture(QPointF at);
    [[nodiscard]] bool gestureActive() const;
    void takeMark();
    void carryMark(QPointF to);
    void leaveMark(void (MarkGrab::*how)());
    void removeMark();
    void snapped(const ShapeRecognizer::Result &shape);
    void offerShapeHint();
    void moveLoupe(QPointF to);
    void takeColor(QPointF at);
    void stopPicking();
    void copyColor();
    void leave();
    void pressOutside(QPointF at);
    [[nodiscard]] bool refusedByPanel();
    [[nodiscard]] bool helpDrag(const QKeyEvent &event);
    void followEdge(Qt::KeyboardModifiers held);
    void obey(const KeyCommands::Meaning &meaning);
    void run(Command command);
    void select(const QRectF &region);
    void selectAgain();
    void selectAtPointer();
    void moveByKey(const ArrowStep &step);
    void nextCorner();
    void rememberRegion() const;
    void copied();
    void refresh();
    void placeBars();
    void sayColor();
    [[nodiscard]] QString spokenSize() const;
    void saySize();
    void followPointer();
    void followKeys(const QKeyEvent &event);
    QPointF see(const QSinglePointEvent &event);
    [[nodiscard]] QPointF pointOf(const QSinglePointEvent &event) const;

    const ScreenShot m_shot;
    const QString m_screenName; // the screen itself may go before the view does
    const ViewSpace m_space;
    OverlaySession &m_session;
    Desktop &m_desktop;

    EditorState m_state;
    Canvas m_canvas;
    SelectionDrag m_selectionDrag{m_state};
    RegionKeys m_regionKeys{m_state, m_space.scale()};
    WindowPick m_windowPick;
    DrawingInput m_drawing{m_state};
    HoldToSnap m_hold{m_state};
    MarkGrab m_grab{m_state, m_space};
    TextEditing m_text{*this, m_space, m_state};
    Eyedropper m_eyedropper;
    WheelSteps m_wheel;
    ToolBars m_bars{*this, m_space, m_state};
    WidthSample m_widthSample{*this, m_space, m_state}; // above the bar, and so made after it
    Notice m_tip{*this, m_space};
    Output m_output;
    Announcer m_announcer{*this};
    QPointF m_pointer; // where it was last
};
