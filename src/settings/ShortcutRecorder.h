#pragma once

#include "platform/Shortcut.h"

#include <QPushButton>
#include <QTimer>

#include <functional>
#include <optional>

class KeyboardGrab;
class KeyboardLayout;

// A button that shows a shortcut. Pressed, it swallows every key until one comes
// that can be a shortcut, or Escape, or a second press.
class ShortcutRecorder final : public QPushButton {
    Q_OBJECT

public:
    // The services must outlive it.
    ShortcutRecorder(const Shortcut &shortcut, const KeyboardLayout &layout, KeyboardGrab &keyboard,
                     QWidget *parent);
    ~ShortcutRecorder() override;

    // Called with what was recorded, still before recording ends.
    std::function<void(const Shortcut &)> onChange;

    [[nodiscard]] bool recording() const { return m_recording; }

    void toggle();
    void stop();

    // Records what was heard in another way than by its keys.
    void record(const Shortcut &shortcut);

    // Shows another shortcut than the one recorded last.
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
    std::optional<std::uint32_t> m_lastKey; // ended the recording and is still down
    QTimer m_released;
};
