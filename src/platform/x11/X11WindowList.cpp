#include "platform/x11/X11WindowList.h"

#include "platform/x11/Desk.h"
#include "platform/x11/Xcb.h"

#include <QMargins>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t mostWindows = 512; // nobody sees more of them
constexpr std::uint32_t everyDesktop = 0xffffffff;

// An answer that is on its way, to be read once or not at all.
template <typename Cookie, typename Answer,
          Answer *(*read)(xcb_connection_t *, Cookie, xcb_generic_error_t **)>
class Coming {
public:
    explicit Coming(Cookie cookie) : m_cookie(cookie) {}
    ~Coming()
    {
        if (m_cookie.sequence)
            xcb_discard_reply(Xcb::connection(), m_cookie.sequence);
    }
    Coming(Coming &&other) noexcept : m_cookie(std::exchange(other.m_cookie, {})) {}
    Coming &operator=(Coming &&other) noexcept
    {
        std::swap(m_cookie, other.m_cookie);
        return *this;
    }

    // Null when the window is not there any more.
    [[nodiscard]] Xcb::Reply<Answer> take()
    {
        return Xcb::Reply<Answer>(read(Xcb::connection(), std::exchange(m_cookie, {}), nullptr));
    }

private:
    Cookie m_cookie;
};

using Property = Coming<xcb_get_property_cookie_t, xcb_get_property_reply_t, xcb_get_property_reply>;
using Tree = Coming<xcb_query_tree_cookie_t, xcb_query_tree_reply_t, xcb_query_tree_reply>;
using Geometry = Coming<xcb_get_geometry_cookie_t, xcb_get_geometry_reply_t, xcb_get_geometry_reply>;
using Place = Coming<xcb_translate_coordinates_cookie_t, xcb_translate_coordinates_reply_t,
                     xcb_translate_coordinates_reply>;
using Attributes = Coming<xcb_get_window_attributes_cookie_t, xcb_get_window_attributes_reply_t,
                          xcb_get_window_attributes_reply>;
using Atom = Coming<xcb_intern_atom_cookie_t, xcb_intern_atom_reply_t, xcb_intern_atom_reply>;

Property ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type)
{
    constexpr std::uint32_t most = 4096; // numbers
    return Property(xcb_get_property(Xcb::connection(), 0, window, property, type, 0, most));
}

// The numbers of a property; none when the window does not have it.
std::vector<std::uint32_t> numbersIn(Property &property)
{
    const auto reply = property.take();
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

bool hasAny(const std::vector<std::uint32_t> &numbers, std::initializer_list<xcb_atom_t> wanted)
{
    return std::ranges::find_first_of(numbers, wanted) != numbers.end();
}

// As the properties give them: left, right, top, bottom.
std::optional<QMargins> marginsIn(Property &property)
{
    const auto sides = numbersIn(property);
    if (sides.size() < 4)
        return std::nullopt;
    const auto side = [&](size_t i) { return int(std::min(sides[i], 0x7fffU)); };
    return QMargins(side(0), side(2), side(1), side(3));
}

// With the border that the server draws.
QRect outer(QPoint inner, const xcb_get_geometry_reply_t &geometry)
{
    const int border = geometry.border_width;
    return QRect(inner, QSize(geometry.width, geometry.height))
        .marginsAdded({border, border, border, border});
}

// The windows that this program has made itself, whoever manages them.
bool isOwn(xcb_window_t window)
{
    const xcb_setup_t *setup = xcb_get_setup(Xcb::connection());
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

} // namespace

struct X11WindowList::Atoms {
    xcb_atom_t stacking, desktop, currentDesktop, state, hidden, type, typeDock, typeDesktop, frame, shadow;

    static Atoms intern()
    {
        constexpr std::array names{"_NET_CLIENT_LIST_STACKING", "_NET_WM_DESKTOP",
                                   "_NET_CURRENT_DESKTOP",      "_NET_WM_STATE",
                                   "_NET_WM_STATE_HIDDEN",      "_NET_WM_WINDOW_TYPE",
                                   "_NET_WM_WINDOW_TYPE_DOCK",  "_NET_WM_WINDOW_TYPE_DESKTOP",
                                   "_NET_FRAME_EXTENTS",        "_GTK_FRAME_EXTENTS"};
        std::vector<Atom> coming;
        coming.reserve(names.size());
        for (const char *name : names)
            coming.emplace_back(
                xcb_intern_atom(Xcb::connection(), 0, static_cast<std::uint16_t>(std::strlen(name)), name));
        std::array<xcb_atom_t, names.size()> a{};
        std::ranges::transform(coming, a.begin(), [](Atom &atom) {
            const auto reply = atom.take();
            return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        });
        return {a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7], a[8], a[9]};
    }
};

// All that is asked about one window.
class X11WindowList::Question {
public:
    Question(xcb_window_t window, const Atoms &atoms, xcb_connection_t *c = Xcb::connection())
        : m_geometry(xcb_get_geometry(c, window))
        , m_place(xcb_translate_coordinates(c, window, Xcb::root(), 0, 0))
        , m_attributes(xcb_get_window_attributes(c, window))
        , m_tree(xcb_query_tree(c, window))
        , m_state(ask(window, atoms.state, XCB_ATOM_ATOM))
        , m_type(ask(window, atoms.type, XCB_ATOM_ATOM))
        , m_desktop(ask(window, atoms.desktop, XCB_ATOM_CARDINAL))
        , m_frame(ask(window, atoms.frame, XCB_ATOM_CARDINAL))
        , m_shadow(ask(window, atoms.shadow, XCB_ATOM_CARDINAL))
    {}

    // Absent when the window does not show, or is a panel or the desktop itself.
    [[nodiscard]] std::optional<QRect> frame(const Atoms &atoms, std::optional<std::uint32_t> desktopShown)
    {
        const auto geometry = m_geometry.take();
        const auto place = m_place.take();
        if (!geometry || !place || !shows(atoms, desktopShown))
            return std::nullopt;
        const QPoint inner(place->dst_x, place->dst_y);
        const QRect content(inner, QSize(geometry->width, geometry->height));
        if (const auto shadow = marginsIn(m_shadow))
            return content.marginsRemoved(*shadow);
        if (const auto frame = marginsIn(m_frame))
            return content.marginsAdded(*frame);
        return parentsFrame(inner, *geometry).value_or(outer(inner, *geometry));
    }

private:
    [[nodiscard]] bool shows(const Atoms &atoms, std::optional<std::uint32_t> desktopShown)
    {
        const auto attributes = m_attributes.take();
        const auto desktop = numbersIn(m_desktop);
        const bool here = desktop.empty() || !desktopShown || desktop.front() == desktopShown
                          || desktop.front() == everyDesktop;
        return here && attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE
               && attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT
               && !hasAny(numbersIn(m_state), {atoms.hidden})
               && !hasAny(numbersIn(m_type), {atoms.typeDock, atoms.typeDesktop});
    }

    // For window managers that do not say how wide their frames are. Where the window is
    // in its frame was asked in time; how large the frame is will not have changed.
    [[nodiscard]] std::optional<QRect> parentsFrame(QPoint inner, const xcb_get_geometry_reply_t &geometry)
    {
        const auto tree = m_tree.take();
        if (!tree || tree->parent == tree->root)
            return std::nullopt;
        const auto parent = Geometry(xcb_get_geometry(Xcb::connection(), tree->parent)).take();
        if (!parent)
            return std::nullopt;
        const int border = geometry.border_width;
        return outer(inner - QPoint(border, border) - QPoint(geometry.x, geometry.y), *parent);
    }

    Geometry m_geometry;
    Place m_place;
    Attributes m_attributes;
    Tree m_tree;
    Property m_state, m_type, m_desktop, m_frame, m_shadow;
};

X11WindowList::X11WindowList() = default;

X11WindowList::~X11WindowList() = default;

void X11WindowList::freeze()
{
    forget();
    if (!m_atoms)
        m_atoms = std::make_unique<const Atoms>(Atoms::intern());
    auto *c = Xcb::connection();
    Property stacking = ask(Xcb::root(), m_atoms->stacking, XCB_ATOM_WINDOW);
    Property desktop = ask(Xcb::root(), m_atoms->currentDesktop, XCB_ATOM_CARDINAL);
    Tree tree(xcb_query_tree(c, Xcb::root()));
    auto windows = numbersIn(stacking);
    const auto shown = numbersIn(desktop);
    m_desktop = shown.empty() ? std::nullopt : std::optional(shown.front());
    const auto top = tree.take();
    if (windows.empty() && top)
        windows.assign(xcb_query_tree_children(top.get()),
                       xcb_query_tree_children(top.get()) + xcb_query_tree_children_length(top.get()));
    std::ranges::reverse(windows); // both begin at the bottom
    std::erase_if(windows, isOwn);
    windows.resize(std::min(windows.size(), mostWindows));
    for (const xcb_window_t window : windows)
        m_questions.emplace_back(window, *m_atoms);
    xcb_flush(c);
}

std::vector<QRect> X11WindowList::answers()
{
    std::vector<QRect> frames;
    for (Question &question : std::exchange(m_questions, {}))
        if (const auto frame = question.frame(*m_atoms, m_desktop))
            frames.push_back(*frame);
    return frames;
}

std::vector<QRect> X11WindowList::framesOn(const ScreenShot &shot)
{
    if (!m_questions.empty())
        m_frames = answers();
    const QRect place = Desk().place(*shot.screen);
    std::vector<QRect> frames;
    for (const QRect &frame : m_frames)
        if (const QRect part = frame & place; !part.isEmpty())
            frames.push_back(part.translated(-place.topLeft()));
    return frames;
}

void X11WindowList::forget()
{
    m_questions.clear();
    m_frames.clear();
}
