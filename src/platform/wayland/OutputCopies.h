#pragma once

#include "platform/wayland/Outputs.h"
#include "platform/wayland/ScreenSource.h"
#include "platform/wayland/SharedBuffers.h"

#include <QObject>

struct zwlr_screencopy_frame_v1;
struct zwlr_screencopy_manager_v1;

// The copies of all outputs that are made for one capture.
class OutputCopies final : public QObject {
    Q_OBJECT

public:
    OutputCopies(std::shared_ptr<Connection> connection, std::shared_ptr<SharedBuffers> buffers);
    ~OutputCopies() override;

    // Asks for all of them; the answers come from the event loop.
    void start();

    // Whether the compositor has copied or refused each of them.
    [[nodiscard]] bool complete() const;
    // Returns one picture for each screen that Qt knows and that is still there, once;
    // without an image where the compositor refused.
    [[nodiscard]] std::vector<ScreenShot> take();

signals:
    void finished();

private:
    struct Copy;

    void ask(Copy &copy);
    void end(Copy &copy, bool copied);

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<SharedBuffers> m_buffers;
    zwlr_screencopy_manager_v1 *m_manager;
    std::vector<std::unique_ptr<Copy>> m_copies;
};
