// copying_compositor NAME:WIDTHxHEIGHT[:BEHAVIOUR[=VALUE]] …: a compositor that has these outputs, shows the
// wallpaper on each and lets it be copied by ext-image-copy-capture, and nothing else. It is strict where the
// protocol is, and answers only when all outputs have been asked for. Listens where the environment says,
// says "ready", and then for every copy the output and its buffer.
//
//   turned=N    is turned and mirrored as wl_output counts, which the output itself does not say
//   format=XXXX wants this format, or one that nobody reads
//   changes     wants another size first, and the true one when that comes
//   wavers      refuses what it has wanted, and says afterwards what it wants
//   restless    wants another size each time
//   refuses     fails to copy
//   stops       ends the session instead of copying
//   closed      ends the session at once
//   goes        ends the session, and the output is gone
//   silent      says nothing more
#include "Wallpaper.h"

#include <QStringList>
#include <QTransform>

#include <wayland-server.h>

#include "ext-image-capture-source-v1-server.h"
#include "ext-image-copy-capture-v1-server.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <list>
#include <memory>
#include <unistd.h>
#include <utility>

namespace {

struct Format {
    const char *name;
    std::uint32_t number;
    QImage::Format image;
    int bytes; // a pixel
};
constexpr Format formats[] = {
    {"XR24", WL_SHM_FORMAT_XRGB8888, QImage::Format_RGB32, 4},
    {"AR24", WL_SHM_FORMAT_ARGB8888, QImage::Format_RGB32, 4},
    {"XB24", WL_SHM_FORMAT_XBGR8888, QImage::Format_RGBX8888, 4},
    {"XB30", WL_SHM_FORMAT_XBGR2101010, QImage::Format_BGR30, 4},
    {"BG24", WL_SHM_FORMAT_BGR888, QImage::Format_RGB888, 3},
    {nullptr, WL_SHM_FORMAT_C8, QImage::Format_RGB32, 4},
};

struct Screen {
    explicit Screen(const QStringList &words)
        : name(words[0].toUtf8())
        , size(words[1].section('x', 0, 0).toInt(), words[1].section('x', 1).toInt())
        , behaviour(words.value(2).section('=', 0, 0))
        , value(words.value(2).section('=', 1))
    {}

    [[nodiscard]] bool is(const char *what) const { return behaviour == what; }
    // Only after something else, if it does.
    [[nodiscard]] bool changesSize() const { return is("changes") || is("wavers"); }
    [[nodiscard]] int transform() const { return is("turned") ? value.toInt() : 0; }
    [[nodiscard]] const Format &format() const
    {
        const auto *found = std::ranges::find_if(
            formats, [this](const Format &one) { return !one.name || value == one.name; });
        return is("format") ? *found : formats[0];
    }
    // As the hardware would scan them.
    [[nodiscard]] QSize scanned() const { return transform() % 2 ? size.transposed() : size; }
    [[nodiscard]] QImage picture() const
    {
        QImage image = Wallpaper::make(size);
        if (transform() & WL_OUTPUT_TRANSFORM_FLIPPED)
            image = image.mirrored(true, false);
        image = image.transformed(QTransform().rotate(-90 * (transform() % 4)));
        return image.convertToFormat(format().image);
    }

    const QByteArray name;
    const QSize size; // as the user sees it
    const QString behaviour;
    const QString value;
    wl_global *global = nullptr;
};

struct Session;

struct Frame {
    Session *session;
    wl_resource *resource;
    wl_resource *buffer = nullptr;
    QSize damaged = {};
    bool waiting = false;
};

struct Session {
    Screen *screen;
    wl_resource *resource;
    QSize wanted = {};
    Frame *frame = nullptr;
    bool answered = false;
};

std::list<Screen> screens;
std::list<Session *> sessions;

template <typename Kind>
Kind &of(wl_resource *resource)
{
    return *static_cast<Kind *>(wl_resource_get_user_data(resource));
}

void destroy(wl_client *, wl_resource *resource) { wl_resource_destroy(resource); }

void want(Session &session, QSize size)
{
    session.wanted = size;
    ext_image_copy_capture_session_v1_send_buffer_size(session.resource, std::uint32_t(size.width()),
                                                       std::uint32_t(size.height()));
    ext_image_copy_capture_session_v1_send_shm_format(session.resource, WL_SHM_FORMAT_NV12);
    ext_image_copy_capture_session_v1_send_shm_format(session.resource, session.screen->format().number);
    ext_image_copy_capture_session_v1_send_done(session.resource);
}

// Whether the client does as it was told.
bool fits(const Frame &frame)
{
    wl_shm_buffer *memory = wl_shm_buffer_get(frame.buffer);
    const Format &format = frame.session->screen->format();
    const QSize size(wl_shm_buffer_get_width(memory), wl_shm_buffer_get_height(memory));
    const int stride = wl_shm_buffer_get_stride(memory);
    return wl_shm_buffer_get_format(memory) == format.number && size == frame.session->wanted
           && frame.damaged == size && stride % 4 == 0 && stride % format.bytes == 0;
}

void copy(const Frame &frame)
{
    const Screen &screen = *frame.session->screen;
    const QImage picture = screen.picture();
    wl_shm_buffer *memory = wl_shm_buffer_get(frame.buffer);
    wl_shm_buffer_begin_access(memory);
    auto *row = static_cast<char *>(wl_shm_buffer_get_data(memory));
    for (int y = 0; y < picture.height(); ++y, row += wl_shm_buffer_get_stride(memory)) {
        std::memcpy(row, picture.constScanLine(y), size_t(picture.width() * screen.format().bytes));
        for (int x = 0; picture.format() == QImage::Format_RGB32 && x < picture.width(); ++x)
            row[4 * x + 3] = 0; // no opacity
    }
    wl_shm_buffer_end_access(memory);
    std::printf("%s %u\n", screen.name.constData(), wl_resource_get_id(frame.buffer));
    std::fflush(stdout);
    ext_image_copy_capture_frame_v1_send_transform(frame.resource, std::uint32_t(screen.transform()));
    ext_image_copy_capture_frame_v1_send_damage(frame.resource, 0, 0, picture.width(), picture.height());
    ext_image_copy_capture_frame_v1_send_presentation_time(frame.resource, 0, 0, 0);
    ext_image_copy_capture_frame_v1_send_ready(frame.resource);
}

void stop(const Frame &frame)
{
    ext_image_copy_capture_session_v1_send_stopped(frame.session->resource);
    ext_image_copy_capture_frame_v1_send_failed(frame.resource,
                                                EXT_IMAGE_COPY_CAPTURE_FRAME_V1_FAILURE_REASON_STOPPED);
}

void wantAnother(const Frame &frame, QSize size)
{
    const bool before = !frame.session->screen->is("wavers");
    if (before)
        want(*frame.session, size);
    ext_image_copy_capture_frame_v1_send_failed(
        frame.resource, EXT_IMAGE_COPY_CAPTURE_FRAME_V1_FAILURE_REASON_BUFFER_CONSTRAINTS);
    if (!before)
        want(*frame.session, size);
}

void answer(const Frame &frame)
{
    Session &session = *frame.session;
    const Screen &screen = *session.screen;
    session.answered = true;
    if (!fits(frame))
        wl_resource_post_error(frame.resource, EXT_IMAGE_COPY_CAPTURE_FRAME_V1_ERROR_NO_BUFFER, "misfit");
    else if (screen.is("refuses"))
        ext_image_copy_capture_frame_v1_send_failed(frame.resource,
                                                    EXT_IMAGE_COPY_CAPTURE_FRAME_V1_FAILURE_REASON_UNKNOWN);
    else if (screen.is("stops") || screen.is("goes"))
        stop(frame);
    else if (screen.is("restless"))
        wantAnother(frame, session.wanted + QSize(1, 1));
    else if (session.wanted != screen.scanned())
        wantAnother(frame, screen.scanned());
    else if (!screen.is("silent"))
        copy(frame);
    if (screen.is("goes"))
        wl_global_remove(screen.global);
}

// Who asks for one output after the other waits for ever.
void answerAll()
{
    const auto asked = [](const Session *session) {
        return session->answered || (session->frame && session->frame->waiting);
    };
    if (sessions.size() < screens.size() || !std::ranges::all_of(sessions, asked))
        return;
    for (const Session *session : sessions)
        if (session->frame && std::exchange(session->frame->waiting, false))
            answer(*session->frame);
}

constexpr struct ext_image_copy_capture_frame_v1_interface frameRequests {
    .destroy = destroy,
    .attach_buffer
        = [](wl_client *, wl_resource *self, wl_resource *buffer) { of<Frame>(self).buffer = buffer; },
    .damage_buffer = [](wl_client *, wl_resource *self, int, int, int width,
                        int height) { of<Frame>(self).damaged = QSize(width, height); },
    .capture = [](wl_client *, wl_resource *self) {
        if (!of<Frame>(self).buffer)
            return wl_resource_post_error(self, EXT_IMAGE_COPY_CAPTURE_FRAME_V1_ERROR_NO_BUFFER, "no buffer");
        of<Frame>(self).waiting = true;
        answerAll();
    },
};

constexpr struct ext_image_copy_capture_session_v1_interface sessionRequests {
    .create_frame =
        [](wl_client *client, wl_resource *self, std::uint32_t id) {
            auto &session = of<Session>(self);
            if (session.frame)
                return wl_resource_post_error(self, EXT_IMAGE_COPY_CAPTURE_SESSION_V1_ERROR_DUPLICATE_FRAME,
                                              "another frame");
            wl_resource *resource
                = wl_resource_create(client, &ext_image_copy_capture_frame_v1_interface, 1, id);
            session.frame = new Frame{&session, resource};
            wl_resource_set_implementation(resource, &frameRequests, session.frame, [](wl_resource *gone) {
                const std::unique_ptr<Frame> frame(&of<Frame>(gone));
                if (std::ranges::find(sessions, frame->session) != sessions.end())
                    frame->session->frame = nullptr;
            });
        },
    .destroy = destroy,
};

constexpr struct ext_image_copy_capture_manager_v1_interface managerRequests {
    .create_session =
        [](wl_client *client, wl_resource *self, std::uint32_t id, wl_resource *source,
           std::uint32_t options) {
            if (options != 0)
                return wl_resource_post_error(self, 1, "with the pointer");
            wl_resource *resource
                = wl_resource_create(client, &ext_image_copy_capture_session_v1_interface, 1, id);
            auto &screen = of<Screen>(source);
            auto *session = new Session{&screen, resource};
            sessions.push_back(session);
            wl_resource_set_implementation(resource, &sessionRequests, session, [](wl_resource *gone) {
                sessions.remove(&of<Session>(gone));
                delete &of<Session>(gone);
            });
            const bool closed = screen.is("closed");
            session->answered = closed || !screen.format().name; // nothing more is to be asked
            if (closed)
                ext_image_copy_capture_session_v1_send_stopped(resource);
            else
                want(*session, screen.changesSize() ? screen.size / 2 : screen.scanned());
        },
    .create_pointer_cursor_session
        = [](wl_client *, wl_resource *, std::uint32_t, wl_resource *, wl_resource *) {},
    .destroy = destroy,
};

constexpr struct ext_image_capture_source_v1_interface sourceRequests {
    .destroy = destroy
};

constexpr struct ext_output_image_capture_source_manager_v1_interface sourceManagerRequests {
    .create_source =
        [](wl_client *client, wl_resource *, std::uint32_t id, wl_resource *output) {
            wl_resource *source = wl_resource_create(client, &ext_image_capture_source_v1_interface, 1, id);
            wl_resource_set_implementation(source, &sourceRequests, &of<Screen>(output), nullptr);
        },
    .destroy = destroy,
};

constexpr struct wl_output_interface outputRequests {
    .release = destroy
};

void bindOutput(wl_client *client, void *data, std::uint32_t version, std::uint32_t id)
{
    auto *screen = static_cast<Screen *>(data);
    wl_resource *output = wl_resource_create(client, &wl_output_interface, int(version), id);
    wl_resource_set_implementation(output, &outputRequests, screen, nullptr);
    wl_output_send_geometry(output, 0, 0, 0, 0, WL_OUTPUT_SUBPIXEL_UNKNOWN, "", "",
                            WL_OUTPUT_TRANSFORM_NORMAL);
    wl_output_send_mode(output, WL_OUTPUT_MODE_CURRENT, screen->size.width(), screen->size.height(), 60000);
    wl_output_send_name(output, screen->name);
    wl_output_send_done(output);
}

// A global whose objects need nothing but their requests.
template <auto &requests>
void offer(wl_display *display, const wl_interface &interface)
{
    static const wl_interface &kind = interface;
    wl_global_create(display, &interface, 1, nullptr,
                     [](wl_client *client, void *, std::uint32_t version, std::uint32_t id) {
                         wl_resource *made = wl_resource_create(client, &kind, int(version), id);
                         wl_resource_set_implementation(made, &requests, nullptr, nullptr);
                     });
}

} // namespace

int main(int count, char **words)
{
    wl_display *display = wl_display_create();
    wl_display_init_shm(display);
    for (const Format &format : formats)
        wl_display_add_shm_format(display, format.number);
    for (int i = 1; i < count; ++i) {
        Screen &screen = screens.emplace_back(QString::fromLocal8Bit(words[i]).split(':'));
        screen.global = wl_global_create(display, &wl_output_interface, 4, &screen, bindOutput);
    }
    offer<sourceManagerRequests>(display, ext_output_image_capture_source_manager_v1_interface);
    offer<managerRequests>(display, ext_image_copy_capture_manager_v1_interface);
    if (wl_display_add_socket(display, std::getenv("WAYLAND_DISPLAY")) != 0)
        return 1;
    // Ends with whoever has started it, whatever ends that.
    const auto end = [](int, std::uint32_t, void *) -> int { std::exit(0); };
    wl_event_loop_add_fd(wl_display_get_event_loop(display), STDIN_FILENO, 0, end, nullptr);
    std::puts("ready");
    std::fflush(stdout);
    wl_display_run(display);
}
