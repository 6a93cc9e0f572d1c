#pragma once

#include "modes/Hand.h"
#include "overlay/OverlaySession.h"
#include "overlay/OverlayView.h"
#include "platform/Desktop.h"
#include "platform/QtClipboard.h"

#include <QImage>

#include <functional>

// One editor on an imaginary screen, with nobody in front of it: everything
// stands still unless it is asked to move, and nothing is heard.
class Stage {
public:
    // The picture fills the screen; scale is pixels per point.
    Stage(const QImage &picture, double scale);

    [[nodiscard]] OverlayView &view() { return m_view; }
    [[nodiscard]] Hand &hand() { return m_hand; }

    // Places in parts of the width and the height from the top left corner.
    [[nodiscard]] QPointF at(double x, double y) const;

    void setMoving(bool moving) { m_desktop.moving = moving; }
    // Handles events until the condition holds; false when it never does, or when
    // the program is to end.
    [[nodiscard]] static bool wait(const std::function<bool()> &condition);

    // Handles events for so long; false at once when the program is to end.
    static bool linger(int milliseconds);

    // What is on the screen of any window, in device pixels.
    [[nodiscard]] static QImage pixelsOf(QWidget &window);

    // What is on the screen, once it is at rest.
    [[nodiscard]] QImage picture();
    // The same at this very moment.
    [[nodiscard]] QImage pictureNow();

private:
    class NoSession final : public OverlaySession {
    public:
        void selectionStarted(OverlayView &) override {}
        void finish() override {}
    };

    class QuietDesktop final : public Desktop {
    public:
        void beep() override {}
        void playPop() override {}
        bool hasSound() override { return false; }
        void hapticTick() override {}
        bool reduceMotion() const override { return !moving; }
        void openWeb(const QUrl &) override {}
        Clipboard &clipboard() override { return m_clipboard; }
        QStringList preferredLanguages() const override { return {}; }
        bool moving = false;

    private:
        QtClipboard m_clipboard;
    };

    NoSession m_session;
    QuietDesktop m_desktop;
    OverlayView m_view;
    Hand m_hand{m_view};
};
