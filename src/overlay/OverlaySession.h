#pragma once

#include <QRect>

#include <vector>

class OverlayView;
class QImage;
struct ScreenShot;

// Answers what an overlay asks of the capture it belongs to.
class OverlaySession {
public:
    // Called when an overlay starts a selection. Only one screen has a selection at
    // a time, so the others lose theirs.
    virtual void selectionStarted(OverlayView &in) = 0;
    // Returns the overlay that the pointer is over, or the given one where nobody can
    // say.
    virtual OverlayView &underPointer(OverlayView &otherwise) = 0;
    // Ends the capture. The overlays are destroyed soon afterwards, not at once.
    virtual void finish() = 0;
    // Ends the capture and opens the print dialog for its picture.
    virtual void print(const QImage &picture) = 0;
    // Returns the frames of the windows that the picture shows, the topmost first, in
    // its pixels, y downwards. Empty where nobody knows them.
    [[nodiscard]] virtual std::vector<QRect> windowsIn(const ScreenShot &shot) = 0;

protected:
    ~OverlaySession() = default;
};
