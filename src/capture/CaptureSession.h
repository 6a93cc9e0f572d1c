#pragma once

#include "base/ScreenShot.h"
#include "overlay/OverlaySession.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class Desktop;
class OverlayWindow;
class WindowList;
class WindowPlacer;

// Manages the windows of one capture, from the moment the screens freeze until they
// are given back.
class CaptureSession final : public QObject, public OverlaySession {
    Q_OBJECT

public:
    // Takes what must outlive the session.
    CaptureSession(WindowPlacer &placer, WindowList &frozen, Desktop &desktop);
    ~CaptureSession() override;

    // Called once, when every window is closed.
    std::function<void()> onFinish;
    // Called when the user wants the picture on paper, after onFinish.
    std::function<void(const QImage &picture)> onPrint;

    // Covers every screen with its own picture and gives the keyboard to the window
    // under the pointer. The windows are in the order of the pictures.
    void start(const std::vector<ScreenShot> &shots);

    void selectionStarted(OverlayView &in) override;
    OverlayView &underPointer(OverlayView &otherwise) override;
    // Gives back the keyboard, the focus and the pointer. A second call does
    // nothing.
    void finish() override;
    void print(const QImage &picture) override;
    std::vector<QRect> windowsIn(const ScreenShot &shot) override;

    [[nodiscard]] const std::vector<std::unique_ptr<OverlayWindow>> &windows() const { return m_windows; }
    [[nodiscard]] OverlayWindow *keyWindow() const { return m_keyWindow; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeKey(OverlayWindow &window);
    void pointerEntered(QObject *target);
    void makeWindows(const std::vector<ScreenShot> &shots, const QScreen *last);
    [[nodiscard]] OverlayWindow &windowOn(const QScreen *screen) const;
    void endWhenScreensChange();

    WindowPlacer &m_placer;
    WindowList &m_frozen;
    Desktop &m_desktop;
    std::vector<std::unique_ptr<OverlayWindow>> m_windows;
    OverlayWindow *m_keyWindow = nullptr; // the one that should have the keyboard
    bool m_awaitingPointer = false;       // nobody knew which screen the pointer is on
    bool m_finished = false;
};
