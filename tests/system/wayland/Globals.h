#pragma once

#include <wayland-client.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

// All things of a kind that the compositor offers, from the first of these versions on
// and in none after the second.
template <typename Proxy>
std::vector<Proxy *> bindAll(wl_display *display, const wl_interface &interface, std::uint32_t first,
                             std::uint32_t last)
{
    struct Search {
        const wl_interface &interface;
        std::uint32_t first, last;
        std::vector<Proxy *> found;
    } search{interface, first, last, {}};
    constexpr wl_registry_listener listener{
        [](void *data, wl_registry *registry, std::uint32_t name, const char *offered, std::uint32_t newest) {
            auto &[wanted, least, most, found] = *static_cast<Search *>(data);
            if (newest >= least && std::strcmp(offered, wanted.name) == 0)
                found.push_back(
                    static_cast<Proxy *>(wl_registry_bind(registry, name, &wanted, std::min(newest, most))));
        },
        [](void *, wl_registry *, std::uint32_t) {},
    };
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &listener, &search);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    return search.found;
}

// The first one, in this version; null when there is none.
template <typename Proxy>
Proxy *bindGlobal(wl_display *display, const wl_interface &interface, std::uint32_t version)
{
    const auto all = bindAll<Proxy>(display, interface, version, version);
    return all.empty() ? nullptr : all.front();
}
