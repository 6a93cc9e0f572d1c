#pragma once

#include "overlay/OverlaySession.h"

class RecordingSession final : public OverlaySession {
public:
    void selectionStarted(OverlayView &) override { ++started; }
    void finish() override { ++finished; }

    int started = 0;
    int finished = 0;
};
