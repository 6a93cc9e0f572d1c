#pragma once

#include <QImage>
#include <QRect>

#include <memory>
#include <vector>

// Takes pictures of the root window through memory shared with the X server.
//
// The server's side of a segment is kept from one capture to the next, because
// filling fresh pages takes five times as long as the copy itself. This program's
// side is emptied and released with the last picture made on it, so that nobody
// holds a capture any longer.
class SharedPictures {
public:
    // Returns how the server's pixels are stored; invalid when no picture format
    // matches them.
    [[nodiscard]] static QImage::Format rootFormat();

    // Returns one rectangle of the root window, in device pixels. Null when the
    // server shares no memory with this program.
    [[nodiscard]] QImage take(const QRect &area, QImage::Format format);

    // Frees the segments that no capture has used since the last call.
    void forgetUnused();

private:
    class Segment;
    struct Mapping;

    [[nodiscard]] std::shared_ptr<Segment> freeSegment(size_t bytes);

    std::vector<std::shared_ptr<Segment>> m_segments;
    std::vector<std::shared_ptr<Segment>> m_used; // since forgetUnused
};
