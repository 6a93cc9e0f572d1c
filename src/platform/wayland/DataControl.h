#pragma once

#include "platform/Clipboard.h"

#include <QObject>

#include <wlr-data-control-unstable-v1-client.h>

#include <memory>
#include <optional>

class Connection;

// The clipboard as compositors hand it to its managers: it can be taken at any time,
// whoever has the keyboard, and what is offered stays when the windows go.
class DataControl final : public QObject {
public:
    // Null where the compositor has no such thing.
    [[nodiscard]] static std::unique_ptr<DataControl> bind(std::shared_ptr<Connection> connection);
    ~DataControl() override;

    // False when the compositor has refused, or is gone.
    [[nodiscard]] bool offer(const Clipboard::Formats &formats);
    // Returns what is offered; absent when another program took the clipboard.
    [[nodiscard]] const std::optional<Clipboard::Formats> &offered() const { return m_offered; }
    // Whether nobody offers anything.
    [[nodiscard]] bool isEmpty() const { return !m_selection; }

private:
    DataControl(std::shared_ptr<Connection> connection, zwlr_data_control_manager_v1 *manager, wl_seat *seat);

    [[nodiscard]] zwlr_data_control_source_v1 *makeSource(const Clipboard::Formats &formats);
    void forget();
    void select(zwlr_data_control_offer_v1 *selection);
    void send(const QString &format, int pipe);

    std::shared_ptr<Connection> m_connection;
    zwlr_data_control_manager_v1 *m_manager;
    wl_seat *m_seat;
    zwlr_data_control_device_v1 *m_device;
    zwlr_data_control_source_v1 *m_source = nullptr;   // null when another program has the clipboard
    zwlr_data_control_offer_v1 *m_selection = nullptr; // what is on it, whosever it is; null when nothing
    std::optional<Clipboard::Formats> m_offered;
};
