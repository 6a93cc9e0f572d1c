#include "platform/x11/X11ScreenGrabber.h"

#include "platform/freedesktop/PrivacySettings.h"
#include "platform/x11/Desk.h"
#include "platform/x11/Xcb.h"

#include <QGuiApplication>
#include <QPixmap>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

// Through the socket: slower, but it needs no memory in common with the server.
QImage takeThroughSocket(const QRect &area, QImage::Format format)
{
    auto *c = Xcb::connection();
    const auto cookie
        = xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, Xcb::root(), static_cast<std::int16_t>(area.x()),
                        static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                        static_cast<std::uint16_t>(area.height()), ~0U);
    const Xcb::Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(c, cookie, nullptr));
    QImage image(area.size(), format);
    if (!reply || image.isNull() || xcb_get_image_data_length(reply.get()) < image.sizeInBytes())
        return {};
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()), static_cast<size_t>(image.sizeInBytes()));
    return image;
}

// The numbers of the screens, that of the one under the pointer last.
std::vector<qsizetype> orderOf(const QList<QScreen *> &screens)
{
    std::vector<qsizetype> order(static_cast<size_t>(screens.size()));
    std::iota(order.begin(), order.end(), 0);
    const QScreen *under = Xcb::screenUnderPointer();
    std::ranges::stable_partition(order, [&](qsizetype i) { return screens[i] != under; });
    return order;
}

} // namespace

bool X11ScreenGrabber::accessGranted()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") != u"wayland"
           || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool X11ScreenGrabber::openAccessSettings() { return PrivacySettings::open(); }

QCoro::Task<std::optional<std::vector<ScreenShot>>> X11ScreenGrabber::grabScreens()
{
    const Desk desk;
    const auto screens = QGuiApplication::screens();
    std::vector<ScreenShot> all(static_cast<size_t>(screens.size()));
    for (const qsizetype i : orderOf(screens))
        all[static_cast<size_t>(i)] = shoot(*screens[i], desk.place(*screens[i]));
    m_pictures.forgetUnused();
    std::erase_if(all, [](const ScreenShot &shot) { return !shot.screen; });
    co_return all;
}

// Without a screen when that is not there.
ScreenShot X11ScreenGrabber::shoot(QScreen &screen, const QRect &area)
{
    const QImage image = area.isEmpty() ? QImage() : grab(screen, area);
    const bool gone = area.isEmpty() || (image.isNull() && Desk().place(screen) != area);
    const double scale = screen.devicePixelRatio();
    return {gone ? nullptr : &screen, image, scale, QSizeF(image.size()) / scale, area};
}

QImage X11ScreenGrabber::grab(QScreen &screen, const QRect &area)
{
    const auto format = SharedPictures::rootFormat();
    if (format == QImage::Format_Invalid) {
        // A display of few colours; Qt knows how to read those.
        return screen.grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
    }
    QImage image = m_pictures.take(area, format);
    if (image.isNull())
        image = takeThroughSocket(area, format);
    return format == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
}
