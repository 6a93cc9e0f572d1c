#include "platform/x11/X11ScreenGrabber.h"

#include "platform/x11/OwnWindows.h"
#include "platform/x11/Xcb.h"

#include <QGuiApplication>
#include <QPixmap>

#include <cstring>

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

// Where the screen is on the root window. The toolkit's own rectangle is
// rounded to points, so the monitor's is asked for first.
QRect nativeArea(const QScreen &screen, const QHash<QString, QRect> &monitors)
{
    const QRect root(0, 0, Xcb::screen()->width_in_pixels, Xcb::screen()->height_in_pixels);
    const QRect area = screen.geometry();
    const QRect guess(area.topLeft(), (QSizeF(area.size()) * screen.devicePixelRatio()).toSize());
    return monitors.value(screen.name(), guess) & root;
}

} // namespace

bool X11ScreenGrabber::accessGranted()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") != u"wayland"
           || qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

QCoro::Task<std::optional<std::vector<ScreenShot>>> X11ScreenGrabber::grabScreens()
{
    m_ownWindows->hide();
    const auto monitors = Xcb::monitors();
    std::vector<ScreenShot> shots;
    for (QScreen *screen : QGuiApplication::screens()) {
        const QRect area = nativeArea(*screen, monitors);
        const QImage image = area.isEmpty() ? QImage() : grab(*screen, area);
        if (image.isNull())
            continue;
        const double scale = screen->devicePixelRatio();
        shots.push_back({screen, image, scale, QSizeF(image.size()) / scale});
    }
    m_pictures.forgetUnused();
    if (shots.empty()) {
        m_ownWindows->restore();
        co_return std::nullopt;
    }
    co_return shots;
}

QImage X11ScreenGrabber::grab(QScreen &screen, const QRect &area)
{
    const auto format = SharedPictures::rootFormat();
    if (format == QImage::Format_Invalid) {
        // A display of few colours; the toolkit knows how to read those.
        return screen.grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
    }
    QImage image = m_pictures.take(area, format);
    if (image.isNull())
        image = takeThroughSocket(area, format);
    return format == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
}
