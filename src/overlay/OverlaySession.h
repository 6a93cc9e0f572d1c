#pragma once

class OverlayView;
class QImage;

// What an overlay asks of the capture it belongs to.
class OverlaySession {
public:
    // One screen has a selection at a time: the others lose theirs.
    virtual void selectionStarted(OverlayView &in) = 0;
    // The capture is over; the overlay goes soon, not at once.
    virtual void finish() = 0;
    // The capture is over, and its picture goes to paper.
    virtual void print(const QImage &picture) = 0;

protected:
    ~OverlaySession() = default;
};
