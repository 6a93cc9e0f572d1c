#pragma once

#include "modes/Hand.h"
#include "overlay/OverlaySession.h"
#include "overlay/OverlayView.h"
#include "platform/Desktop.h"
#include "platform/QtClipboard.h"

#include <QImage>

#include <functional>

// Puts one editor on an imaginary screen with nobody in front of it: everything
// stands still unless it is told to move, and nothing makes a sound.
class Stage {
public:
    // Takes the picture that fills the screen, and the screen's pixels per point.
    Stage(const QImage &picture, double scale);

    [[nodiscard]] OverlayView &view() { return m_view; }
    [[nodiscard]] Hand &hand() { return m_hand; }

    // Returns a place in widget points, given as parts of the width and the height
    // from the top left corner.
    [[nodiscard]] QPointF at(double x, double y) const;

    void setMoving(bool moving) { m_desktop.moving = moving; }
    // Handles events until the condition holds. Returns false when it does not
    // within a few seconds, or when the program is to end.
    [[nodiscard]] static bool wait(const std::function<bool()> &condition);

    // Handles events for so long. Returns false at once when the program is to end.
    static bool linger(int milliseconds);

    // Returns what a window shows, in device pixels.
    [[nodiscard]] static QImage pixelsOf(QWidget &window);

    // Returns what the editor shows once the glow is at rest.
    [[nodiscard]] QImage picture();
    // Returns what the editor shows at this moment.
    [[nodiscard]] QImage pictureNow();

private:
    class NoSession final : public OverlaySession {
    public:
        void selectionStarted(OverlayView &) override {}
        OverlayView &underPointer(OverlayView &otherwise) override { return otherwise; }
        void finish() override {}
        void print(const QImage &) override {}
        std::vector<QRect> windowsIn(const ScreenShot &) override { return {}; }
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
