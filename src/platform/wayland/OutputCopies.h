#pragma once

#include "platform/wayland/Outputs.h"
#include "platform/wayland/ScreenSource.h"
#include "platform/wayland/SharedBuffers.h"
#include "platform/wayland/Upright.h"

#include <QObject>

class OutputCopies;

// The copy of one output on its way from the compositor, whatever protocol brings it.
// Whoever knows the protocol derives from this and says in what layout the compositor
// wants to copy and what has come of it.
class OutputCopy {
public:
    OutputCopy(OutputCopies &all, std::unique_ptr<Output> output);
    virtual ~OutputCopy() = default;
    Q_DISABLE_COPY_MOVE(OutputCopy)

    [[nodiscard]] const Output &output() const { return *m_output; }
    // Whether the compositor has neither copied nor refused it yet.
    [[nodiscard]] bool isPending() const { return m_state == State::asked; }
    // Returns what the output shows as the user sees it, once; null when it was not copied.
    [[nodiscard]] QImage take();

protected:
    // Has the compositor copy into a buffer of this layout; ends without a copy where
    // there is none.
    void copyInto(const SharedBuffers::Layout &layout);
    // Tells the compositor to do so. The size is the buffer's, in device pixels.
    virtual void send(wl_buffer *buffer, QSize size) = 0;
    // What the image is like, which the compositor says before it has copied: the
    // output's own transform unless another is named.
    void setTransform(wl_output_transform transform) { m_transform = transform; }
    void setRows(Rows rows) { m_rows = rows; }
    // The compositor has copied, or will not. What comes afterwards changes nothing.
    void end(bool copied);

private:
    enum class State { asked, copied, failed };

    void lookAtBuffer();

    OutputCopies &m_all;
    std::unique_ptr<Output> m_output;
    std::shared_ptr<SharedBuffers::Buffer> m_buffer; // what the compositor writes into
    QImage m_image;                                  // the same, once it can be read
    std::optional<wl_output_transform> m_transform;
    Rows m_rows = Rows::topFirst;
    State m_state = State::asked;
};

// A protocol by which the compositor copies outputs, for as long as one capture takes.
class CopyProtocol {
public:
    virtual ~CopyProtocol() = default;
    // Asks for the copy of an output.
    [[nodiscard]] virtual std::unique_ptr<OutputCopy> ask(OutputCopies &all, std::unique_ptr<Output> output)
        = 0;
};

// The copies of all outputs that are made for one capture.
class OutputCopies final : public QObject {
    Q_OBJECT

public:
    OutputCopies(std::shared_ptr<Connection> connection, std::shared_ptr<SharedBuffers> buffers,
                 std::unique_ptr<CopyProtocol> protocol);
    ~OutputCopies() override;

    // Asks for all of them; the answers come from the event loop.
    void start();

    // Whether the compositor has copied or refused each of those that it still has.
    [[nodiscard]] bool complete() const;
    // Returns one picture for each screen that Qt knows and that is still there, once;
    // without an image where the compositor refused.
    [[nodiscard]] std::vector<ScreenShot> take();

signals:
    void finished();

private:
    friend class OutputCopy;

    void ended();

    std::shared_ptr<Connection> m_connection;
    std::shared_ptr<SharedBuffers> m_buffers;
    std::unique_ptr<CopyProtocol> m_protocol;
    std::vector<std::unique_ptr<OutputCopy>> m_copies;
};
