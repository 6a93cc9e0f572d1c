#pragma once

#include <QImage>
#include <QRect>

#include <memory>
#include <vector>

// Pictures of the root window through memory shared with the X server.
//
// The server's side of a segment is kept from one capture to the next, because
// filling fresh pages costs five times as much as the copy itself. This
// program's side goes with the last picture made on it, so that an idle
// process holds no capture.
class SharedPictures {
public:
    // How the server's pixels are stored; invalid when no picture format
    // matches them.
    [[nodiscard]] static QImage::Format rootFormat();

    // One rectangle of the root window in device pixels. Null when the server
    // shares no memory with this program.
    [[nodiscard]] QImage take(const QRect &area, QImage::Format format);

    // Gives up what the captures since the last call did not use.
    void forgetUnused();

private:
    class Segment;
    struct Mapping;

    [[nodiscard]] std::shared_ptr<Segment> freeSegment(size_t bytes);

    std::vector<std::shared_ptr<Segment>> m_segments;
    std::vector<std::shared_ptr<Segment>> m_used; // since forgetUnused
};
