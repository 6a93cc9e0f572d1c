#pragma once

#include "platform/wayland/Connection.h"

#include <QImage>
#include <QSize>

#include <memory>
#include <optional>
#include <vector>

// Memory that the compositor writes pictures into and this program reads.
//
// The compositor's side is kept from one capture to the next, because filling fresh
// pages costs more than the copy itself. This program's side comes and goes with the
// picture, and blanks the memory when it goes, so that nothing of a capture stays.
class SharedBuffers {
public:
    explicit SharedBuffers(std::shared_ptr<Connection> connection);
    ~SharedBuffers();
    Q_DISABLE_COPY_MOVE(SharedBuffers)

    struct Layout {
        std::uint32_t format; // as in wl_shm
        QSize size;           // device pixels
        int stride;           // bytes from one row to the next

        friend bool operator==(const Layout &, const Layout &) = default;
    };

    class Buffer {
    public:
        virtual ~Buffer() = default;
        [[nodiscard]] virtual wl_buffer *proxy() const = 0;
    };

    // Returns the layout in which a picture of this size is read with the least work;
    // absent when the size makes no sense or none of the formats is one that this
    // program reads.
    [[nodiscard]] static std::optional<Layout> layoutFor(QSize size,
                                                         const std::vector<std::uint32_t> &formats);

    // Returns a buffer that no picture uses; null when the format is none that this
    // program reads, the sizes make no sense or there is no memory.
    [[nodiscard]] std::shared_ptr<Buffer> take(const Layout &layout);

    // Returns what the compositor has written, which need not be opaque; null when it
    // cannot be looked at.
    // Keeps the buffer in use for as long as the picture lives.
    [[nodiscard]] static QImage picture(const std::shared_ptr<Buffer> &buffer);

    // Gives up what was not taken since the last call.
    void forgetUnused();

private:
    class Memory;
    struct Mapping;

    std::shared_ptr<Connection> m_connection;
    wl_shm *m_shm;
    std::vector<std::shared_ptr<Memory>> m_kept;
    std::vector<std::shared_ptr<Memory>> m_used; // since forgetUnused
};
