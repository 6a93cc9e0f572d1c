#pragma once

#include "platform/Shortcut.h"

#include <QPushButton>
#include <QTimer>

#include <functional>
#include <optional>

class KeyboardGrab;
class KeyboardLayout;

// Shows a shortcut on a button. Once pressed, the button swallows every key until
// it gets one that can be a shortcut, or Escape, or a second press.
class ShortcutRecorder final : public QPushButton {
    Q_OBJECT

public:
    // Takes the layout and the keyboard, which must outlive the button.
    ShortcutRecorder(const Shortcut &shortcut, const KeyboardLayout &layout, KeyboardGrab &keyboard,
                     QWidget *parent);
    ~ShortcutRecorder() override;

    // Called with the recorded shortcut just before recording ends.
    std::function<void(const Shortcut &)> onChange;

    [[nodiscard]] bool recording() const { return m_recording; }

    void toggle();
    void stop();

    // Records a shortcut that was reported otherwise than by its key presses.
    void record(const Shortcut &shortcut);

    // Shows a shortcut other than the one recorded last.
    void showShortcut(const Shortcut &shortcut);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void start();
    void hear(const QKeyEvent &event);
    void hearPress(const QKeyEvent &event);
    void waitForRelease(const QKeyEvent &event);
    void endRecording();
    void showTitle();

    const KeyboardLayout &m_layout;
    KeyboardGrab &m_keyboard;
    Shortcut m_shortcut;
    bool m_recording = false;
    std::optional<std::uint32_t> m_lastKey; // the key that ended the recording and is still down
    QTimer m_released;
};
