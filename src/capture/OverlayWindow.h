#pragma once

#include "base/ScreenShot.h"

#include <QWidget>

class Desktop;
class OverlaySession;
class OverlayView;

// Covers one screen and holds its editor.
class OverlayWindow final : public QWidget {
    Q_OBJECT

public:
    OverlayWindow(const ScreenShot &shot, OverlaySession &session, Desktop &desktop);

    [[nodiscard]] OverlayView &view() const { return *m_view; }
    [[nodiscard]] QScreen &shotScreen() const { return *m_screen; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QScreen *m_screen;
    OverlaySession &m_session;
    OverlayView *m_view;
};
