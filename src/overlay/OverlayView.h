#pragma once

#include "base/ViewSpace.h"
#include "capture/ScreenShot.h"
#include "overlay/Chrome.h"
#include "overlay/EditorState.h"
#include "overlay/KeyCommands.h"
#include "overlay/Output.h"
#include "overlay/SelectionDrag.h"

#include <QDeadlineTimer>
#include <QWidget>

#include <functional>

class Desktop;
class OverlaySession;

// A flash of the glow: gentle for a new selection, strong for a copy.
enum class Pulse { gentle, strong };

// The editor on one screen. It receives the events, asks the collaborator whose
// turn it is, and repaints; the work is theirs.
class OverlayView final : public QWidget {
    Q_OBJECT

public:
    // The session and the desktop must outlive the view.
    OverlayView(ScreenShot shot, OverlaySession &session, Desktop &desktop, QWidget *parent = nullptr);

    [[nodiscard]] const EditorState &state() const { return m_state; }
    [[nodiscard]] const ScreenShot &shot() const { return m_shot; }
    // Adds a mark as if it had just been drawn.
    void addMark(AnnotationPtr mark);

    // The region without any chrome; absent without a selection.
    [[nodiscard]] std::optional<QImage> renderSelection() const;
    void copyImage();
    void saveImage();
    void printImage();
    void selectAll();
    // Leaves without output.
    void cancel();
    // Another screen has the selection now.
    void discardSelection();

    // What the glow is told, if there is one.
    std::function<void(Pulse)> onPulse;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void startSelection(QPointF at);
    void pressInside(QPointF at);
    void pressOutside(QPointF at);
    void run(Command command);
    void copied();
    void pulse(Pulse kind);
    void refresh();
    [[nodiscard]] QPointF pointOf(const QMouseEvent &event) const;
    [[nodiscard]] Chrome::Scene scene() const;

    const ScreenShot m_shot;
    const ViewSpace m_space;
    OverlaySession &m_session;
    Desktop &m_desktop;

    EditorState m_state;
    SelectionDrag m_selectionDrag{m_state};
    Output m_output;
    QDeadlineTimer m_copied{0}; // until when the feedback shows

    std::optional<QRectF> m_paintedSelection; // as it is on the screen
    QRegion m_paintedChrome;
};
