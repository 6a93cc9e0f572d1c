#include "platform/wayland/WaylandHotKeys.h"

#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/KdeHotKeys.h"
#include "platform/wayland/PortalHotKeys.h"

namespace {

// Where there is nobody to ask.
class NoHotKeys final : public HotKeyService {
public:
    bool registerShortcut(const Shortcut &) override { return false; }
    void unregisterShortcut() override {}
    Binding binding() const override { return Binding::nobody; }
};

} // namespace

std::unique_ptr<HotKeyService> makeWaylandHotKeys(const KeyboardLayout *layout)
{
    if (!SessionBus::present())
        return std::make_unique<NoHotKeys>();
    if (KdeHotKeys::present())
        return std::make_unique<KdeHotKeys>(layout);
    return std::make_unique<PortalHotKeys>(layout);
}
