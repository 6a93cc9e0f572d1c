#include "Globals.h"
#include "Hand.h"

#include "fake-input-client.h"

namespace {

constexpr std::uint32_t withKeys = 4; // the first version that can press keys

class KwinHand final : public Hand {
public:
    KwinHand(wl_display *display, org_kde_kwin_fake_input *input) : m_display(display), m_input(input)
    {
        org_kde_kwin_fake_input_authenticate(m_input, "hand", "a test");
    }

    void moveTo(double x, double y) override
    {
        org_kde_kwin_fake_input_pointer_motion_absolute(m_input, wl_fixed_from_double(x),
                                                        wl_fixed_from_double(y));
    }
    void button(std::uint32_t code, bool down) override
    {
        org_kde_kwin_fake_input_button(m_input, code, down);
    }
    void key(std::uint32_t code, bool down) override
    {
        org_kde_kwin_fake_input_keyboard_key(m_input, code, down);
    }
    bool settle() override { return wl_display_roundtrip(m_display) >= 0; }

private:
    wl_display *m_display;
    org_kde_kwin_fake_input *m_input;
};

} // namespace

std::unique_ptr<Hand> makeKwinHand(wl_display *display)
{
    auto *input = bindGlobal<org_kde_kwin_fake_input>(display, org_kde_kwin_fake_input_interface, withKeys);
    return input ? std::make_unique<KwinHand>(display, input) : nullptr;
}
