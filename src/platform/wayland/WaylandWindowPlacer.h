#pragma once

#include "platform/WindowPlacer.h"
#include "platform/freedesktop/OrdinaryWindows.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class LayerPopups;
class LayerShell;
class LayerSurface;
class QtQueue;

// Overlays as layers of the compositor, or as full-screen windows where it has none. Only
// layers are sure to be above everything, to show on every output at once, and to have
// the keyboard when they want it.
class WaylandWindowPlacer final : public QObject, public WindowPlacer {
public:
    explicit WaylandWindowPlacer(std::shared_ptr<QtQueue> queue);
    ~WaylandWindowPlacer() override;

    void beginSession() override;
    void cover(QWidget &window, QScreen &screen) override;
    void giveKeyboard(QWidget &window) override;
    // Always null: a program knows where the pointer is only once its own windows are
    // below it.
    QScreen *screenUnderPointer() const override { return nullptr; }
    void endSession() override;

private:
    struct Overlay {
        QPointer<QWidget> window;
        std::unique_ptr<LayerSurface> layer; // absent for a full-screen window
    };

    [[nodiscard]] std::unique_ptr<LayerSurface> showAsLayer(QWidget &window, QScreen &screen);
    static void showFullScreen(QWidget &window, QScreen &screen);

    std::shared_ptr<QtQueue> m_queue;
    std::unique_ptr<LayerShell> m_shell; // absent where the compositor has no layers
    std::vector<Overlay> m_overlays;
    std::unique_ptr<LayerPopups> m_popups; // present while layers show
    OrdinaryWindows m_ownWindows;
};
