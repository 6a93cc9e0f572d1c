// Other programs that have to do with the clipboard.
//
//   clipboard --read TYPE FILE DELAY   reads the clipboard into a file, waiting so many milliseconds before
//   each
//                                      piece of it; says how many pieces there were
//   clipboard --manage FOLDER          a clipboard manager: a program that ends asks it to keep all of what
//   it
//                                      offers, and each type of a picture becomes a file
//   clipboard --manage                 one that never answers
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
using Event = std::unique_ptr<xcb_generic_event_t, Free>;
using Property = std::unique_ptr<xcb_get_property_reply_t, Free>;

void say(const char *what, std::size_t value)
{
    std::printf("%s %zu\n", what, value);
    std::fflush(stdout);
}

// The display, and a window that does not show to speak through.
struct Speaker {
    xcb_connection_t *c = xcb_connect(nullptr, nullptr);
    xcb_window_t window = xcb_generate_id(c);

    Speaker()
    {
        const xcb_screen_t &screen = *xcb_setup_roots_iterator(xcb_get_setup(c)).data;
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen.root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual, XCB_CW_EVENT_MASK, &events);
    }

    [[nodiscard]] xcb_atom_t atom(const std::string &name) const
    {
        const auto cookie = xcb_intern_atom(c, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(c, cookie, nullptr));
        return reply->atom;
    }

    [[nodiscard]] std::string name(xcb_atom_t atom) const
    {
        const std::unique_ptr<xcb_get_atom_name_reply_t, Free> reply(
            xcb_get_atom_name_reply(c, xcb_get_atom_name(c, atom), nullptr));
        return {xcb_get_atom_name_name(reply.get()),
                static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
    }

    // Takes the property away, which asks for the next piece of it.
    [[nodiscard]] Property take(xcb_atom_t property) const
    {
        const auto cookie = xcb_get_property(c, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 1U << 28U);
        return Property(xcb_get_property_reply(c, cookie, nullptr));
    }
};

struct Content {
    std::string bytes;
    std::size_t pieces = 1;
};

void append(Content &content, const Property &piece)
{
    content.bytes.append(static_cast<const char *>(xcb_get_property_value(piece.get())),
                         static_cast<std::size_t>(xcb_get_property_value_length(piece.get())));
}

// Piece by piece, each when its reader has taken the one before.
Content readPieces(const Speaker &speaker, xcb_atom_t property, std::chrono::milliseconds delay)
{
    Content content{.bytes = {}, .pieces = 0};
    while (const Event event{xcb_wait_for_event(speaker.c)}) {
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(*event);
        if ((event->response_type & 0x7fU) != XCB_PROPERTY_NOTIFY || change.atom != property
            || change.state != XCB_PROPERTY_NEW_VALUE)
            continue;
        std::this_thread::sleep_for(delay);
        const Property piece = speaker.take(property);
        if (!piece || xcb_get_property_value_length(piece.get()) == 0)
            break;
        append(content, piece);
        ++content.pieces;
    }
    return content;
}

// Absent where the clipboard has no such type.
std::optional<Content> read(const Speaker &speaker, xcb_atom_t type, std::chrono::milliseconds delay)
{
    const xcb_atom_t property = speaker.atom("_CONTENT");
    xcb_convert_selection(speaker.c, speaker.window, speaker.atom("CLIPBOARD"), type, property,
                          XCB_CURRENT_TIME);
    xcb_flush(speaker.c);
    while (const Event event{xcb_wait_for_event(speaker.c)}) {
        if ((event->response_type & 0x7fU) != XCB_SELECTION_NOTIFY)
            continue;
        if (reinterpret_cast<const xcb_selection_notify_event_t &>(*event).property == XCB_ATOM_NONE)
            return std::nullopt;
        const Property whole = speaker.take(property);
        if (whole->type == speaker.atom("INCR"))
            return readPieces(speaker, property, delay);
        Content content;
        append(content, whole);
        return content;
    }
    return std::nullopt;
}

void save(const Speaker &speaker, const std::string &folder)
{
    const auto targets = read(speaker, speaker.atom("TARGETS"), {});
    std::vector<xcb_atom_t> types(targets ? targets->bytes.size() / sizeof(xcb_atom_t) : 0);
    if (!types.empty())
        std::memcpy(types.data(), targets->bytes.data(), types.size() * sizeof(xcb_atom_t));
    std::size_t kept = 0;
    for (const xcb_atom_t type : types) {
        const std::string name = speaker.name(type);
        if (name.rfind("image/", 0) != 0)
            continue;
        if (const auto content = read(speaker, type, {})) {
            std::ofstream(folder + "/" + name.substr(6), std::ios::binary) << content->bytes;
            ++kept;
        }
    }
    say("saved", kept);
}

int manage(const Speaker &speaker, const char *folder)
{
    const xcb_atom_t manager = speaker.atom("CLIPBOARD_MANAGER");
    xcb_set_selection_owner(speaker.c, speaker.window, manager, XCB_CURRENT_TIME);
    xcb_flush(speaker.c);
    say("manages", speaker.window);
    while (const Event event{xcb_wait_for_event(speaker.c)}) {
        if ((event->response_type & 0x7fU) != XCB_SELECTION_REQUEST)
            continue;
        say("asked", 1);
        if (!folder)
            continue;
        save(speaker, folder);
        const auto &asked = reinterpret_cast<const xcb_selection_request_event_t &>(*event);
        const xcb_selection_notify_event_t answer = {
            XCB_SELECTION_NOTIFY, 0, 0, asked.time, asked.requestor, manager, asked.target, asked.property};
        xcb_send_event(speaker.c, 0, answer.requestor, 0, reinterpret_cast<const char *>(&answer));
        xcb_flush(speaker.c);
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv)
{
    const Speaker speaker;
    if (xcb_connection_has_error(speaker.c) || argc < 2)
        return EXIT_FAILURE;
    if (std::strcmp(argv[1], "--manage") == 0)
        return manage(speaker, argc > 2 ? argv[2] : nullptr);
    if (std::strcmp(argv[1], "--read") != 0 || argc < 5)
        return EXIT_FAILURE;
    const auto content = read(speaker, speaker.atom(argv[2]), std::chrono::milliseconds(std::atoi(argv[4])));
    if (!content)
        return EXIT_FAILURE;
    std::ofstream(argv[3], std::ios::binary) << content->bytes;
    say("pieces", content->pieces);
    return EXIT_SUCCESS;
}
