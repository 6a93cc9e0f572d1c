#include "platform/wayland/DataControl.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/PipeWriter.h"

#include <utility>

namespace {

constexpr std::uint32_t knownVersion = 2;

// The later protocol has the same messages under another name.
zwlr_data_control_manager_v1 *bindManager(const Connection &connection)
{
    static const wl_interface later = [] {
        wl_interface interface = zwlr_data_control_manager_v1_interface;
        interface.name = "ext_data_control_manager_v1";
        interface.version = 1;
        return interface;
    }();
    if (auto *manager = connection.bind<zwlr_data_control_manager_v1>(later, 1))
        return manager;
    return connection.bind<zwlr_data_control_manager_v1>(zwlr_data_control_manager_v1_interface,
                                                         knownVersion);
}

} // namespace

std::unique_ptr<DataControl> DataControl::bind(std::shared_ptr<Connection> connection)
{
    auto *manager = bindManager(*connection);
    auto *seat = manager ? connection->bind<wl_seat>(wl_seat_interface, 1) : nullptr;
    if (seat)
        return std::unique_ptr<DataControl>(new DataControl(std::move(connection), manager, seat));
    if (manager)
        zwlr_data_control_manager_v1_destroy(manager);
    return nullptr;
}

DataControl::DataControl(std::shared_ptr<Connection> connection, zwlr_data_control_manager_v1 *manager,
                         wl_seat *seat)
    : m_connection(std::move(connection))
    , m_manager(manager)
    , m_seat(seat)
    , m_device(zwlr_data_control_manager_v1_get_data_device(manager, seat))
{
    static constexpr zwlr_data_control_device_v1_listener listener{
        .data_offer = [](void *, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *) {},
        .selection
        = [](void *self, zwlr_data_control_device_v1 *,
             zwlr_data_control_offer_v1 *offer) { static_cast<DataControl *>(self)->select(offer); },
        .finished = [](void *, zwlr_data_control_device_v1 *) {},
        .primary_selection =
            [](void *, zwlr_data_control_device_v1 *, zwlr_data_control_offer_v1 *offer) {
                if (offer)
                    zwlr_data_control_offer_v1_destroy(offer);
            },
    };
    zwlr_data_control_device_v1_add_listener(m_device, &listener, this);
    m_connection->roundtrip(); // what is on the clipboard already
}

DataControl::~DataControl()
{
    forget();
    select(nullptr);
    zwlr_data_control_device_v1_destroy(m_device);
    zwlr_data_control_manager_v1_destroy(m_manager);
    wl_seat_destroy(m_seat);
    m_connection->flush();
}

bool DataControl::offer(const Clipboard::Formats &formats)
{
    auto *source = makeSource(formats);
    zwlr_data_control_device_v1_set_selection(m_device, source);
    forget(); // only now, so that the clipboard is never empty
    m_source = source;
    m_offered = formats;
    return m_connection->roundtrip() && m_source;
}

zwlr_data_control_source_v1 *DataControl::makeSource(const Clipboard::Formats &formats)
{
    static constexpr zwlr_data_control_source_v1_listener listener{
        .send
        = [](void *self, zwlr_data_control_source_v1 *, const char *format,
             std::int32_t pipe) { static_cast<DataControl *>(self)->send(QString::fromUtf8(format), pipe); },
        .cancelled
        = [](void *self, zwlr_data_control_source_v1 *) { static_cast<DataControl *>(self)->forget(); },
    };
    auto *source = zwlr_data_control_manager_v1_create_data_source(m_manager);
    zwlr_data_control_source_v1_add_listener(source, &listener, this);
    for (auto format = formats.keyBegin(); format != formats.keyEnd(); ++format)
        zwlr_data_control_source_v1_offer(source, format->toUtf8().constData());
    return source;
}

void DataControl::forget()
{
    m_offered.reset();
    if (auto *source = std::exchange(m_source, nullptr))
        zwlr_data_control_source_v1_destroy(source);
}

void DataControl::select(zwlr_data_control_offer_v1 *selection)
{
    if (auto *former = std::exchange(m_selection, selection))
        zwlr_data_control_offer_v1_destroy(former);
}

void DataControl::send(const QString &format, int pipe)
{
    new PipeWriter(pipe, m_offered ? m_offered->value(format) : QByteArray(), this);
}
