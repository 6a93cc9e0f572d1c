#pragma once

#include "platform/wayland/Connection.h"

#include <QPoint>
#include <QScreen>
#include <QSize>
#include <QString>

#include <memory>
#include <vector>

// An output as the compositor describes it. What it says arrives some time after
// this was made.
class Output {
public:
    Output(const Connection &connection, const Connection::Global &global);
    ~Output();
    Q_DISABLE_COPY_MOVE(Output)

    [[nodiscard]] wl_output *proxy() const { return m_proxy; }
    [[nodiscard]] std::uint32_t global() const { return m_global; }
    // Whether everything has been said.
    [[nodiscard]] bool described() const { return m_described; }
    [[nodiscard]] wl_output_transform transform() const { return m_transform; }
    // Its size in device pixels, as the user sees it.
    [[nodiscard]] QSize nativeSize() const;
    // The screen of the same name, or at the same place where outputs have no names;
    // null when Qt has none.
    [[nodiscard]] QScreen *screen() const;

private:
    static const wl_output_listener listener;

    const std::uint32_t m_global;
    wl_output *m_proxy;
    QString m_name;
    QPoint m_place; // as the compositor counts
    QSize m_mode;   // as the hardware scans it
    wl_output_transform m_transform = WL_OUTPUT_TRANSFORM_NORMAL;
    bool m_described = false;
};

namespace Outputs {

// Begins to ask about every output there is.
[[nodiscard]] std::vector<std::unique_ptr<Output>> all(const Connection &connection);
// Whether the compositor still has it.
[[nodiscard]] bool isThere(const Connection &connection, const Output &output);

} // namespace Outputs
