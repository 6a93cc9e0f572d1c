#pragma once

#include <wayland-client.h>

#include <cstdint>
#include <cstring>
#include <vector>

// All things of a kind that the compositor offers, in this version, which is the one
// that is needed at least.
template <typename Proxy>
std::vector<Proxy *> bindAll(wl_display *display, const wl_interface &interface, std::uint32_t version)
{
    struct Search {
        const wl_interface &interface;
        std::uint32_t version;
        std::vector<Proxy *> found;
    } search{interface, version, {}};
    constexpr wl_registry_listener listener{
        [](void *data, wl_registry *registry, std::uint32_t name, const char *offered, std::uint32_t newest) {
            auto &[wanted, least, found] = *static_cast<Search *>(data);
            if (newest >= least && std::strcmp(offered, wanted.name) == 0)
                found.push_back(static_cast<Proxy *>(wl_registry_bind(registry, name, &wanted, least)));
        },
        [](void *, wl_registry *, std::uint32_t) {},
    };
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &listener, &search);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    return search.found;
}

// The first of them; null when there is none.
template <typename Proxy>
Proxy *bindGlobal(wl_display *display, const wl_interface &interface, std::uint32_t version)
{
    const auto all = bindAll<Proxy>(display, interface, version);
    return all.empty() ? nullptr : all.front();
}
