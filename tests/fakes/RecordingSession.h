#pragma once

#include "overlay/OverlaySession.h"

#include <QImage>
#include <QList>

class RecordingSession final : public OverlaySession {
public:
    void selectionStarted(OverlayView &) override { ++started; }
    OverlayView &underPointer(OverlayView &otherwise) override { return otherwise; }
    void finish() override { ++finished; }
    void print(const QImage &picture) override { printed.append(picture); }

    std::vector<QRect> windowsIn(const ScreenShot &) override { return windows; }

    std::vector<QRect> windows;
    int started = 0;
    int finished = 0;
    QList<QImage> printed;
};
