#include "platform/wayland/KWinPicture.h"

#include "platform/wayland/BusCall.h"
#include "platform/wayland/PipeReader.h"

#include <QCoroSignal>
#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 5s;

// In larger pieces than a pipe usually takes, or the two sides wait for each other
// hundreds of times. Where that is not allowed, it works as well.
void enlarge(const Descriptor &pipe)
{
    constexpr int allowedToAll = 1024 * 1024;
    (void)fcntl(pipe.number(), F_SETPIPE_SZ, allowedToAll);
}

QDBusMessage request(const QString &screen, const Descriptor &pipe)
{
    const QString interface = QStringLiteral("org.kde.KWin.ScreenShot2");
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.kde.KWin"),
                                               QStringLiteral("/org/kde/KWin/ScreenShot2"), interface,
                                               QStringLiteral("CaptureScreen"));
    const QVariantMap options{{QStringLiteral("native-resolution"), true},
                              {QStringLiteral("include-cursor"), false}};
    call << screen << options << QVariant::fromValue(QDBusUnixFileDescriptor(pipe.number()));
    return call;
}

QString problemOf(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ErrorMessage ? reply.errorName()
                                                      : QStringLiteral("respuesta ilegible");
}

// A screen is opaque, whatever stands where the opacity would be.
QImage opaque(QImage image)
{
    const bool redFirst = image.format() >= QImage::Format_RGBX8888;
    image.reinterpretAsFormat(redFirst ? QImage::Format_RGBX8888 : QImage::Format_RGB32);
    return std::move(image).convertToFormat(QImage::Format_RGB32);
}

QVariantMap descriptionIn(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ReplyMessage ? qdbus_cast<QVariantMap>(reply.arguments().value(0))
                                                      : QVariantMap();
}

} // namespace

namespace KWinPicture {

std::optional<Layout> layoutOf(const QVariantMap &description)
{
    constexpr int mostPixels = 32768; // along one side
    const auto number = [&](const char *key) { return description.value(QLatin1String(key)).toInt(); };
    constexpr QImage::Format known[]
        = {QImage::Format_RGB32,    QImage::Format_ARGB32,   QImage::Format_ARGB32_Premultiplied,
           QImage::Format_RGBX8888, QImage::Format_RGBA8888, QImage::Format_RGBA8888_Premultiplied};
    const auto *format = std::ranges::find(known, number("format"), [](QImage::Format f) { return int(f); });
    const QSize size(number("width"), number("height"));
    const int stride = number("stride");
    const bool readable = description.value(QStringLiteral("type")) == QStringLiteral("raw")
                          && format != std::end(known) && !size.isEmpty() && size.width() <= mostPixels
                          && size.height() <= mostPixels && stride == size.width() * 4;
    return readable ? std::optional(Layout{.size = size, .stride = stride, .format = *format}) : std::nullopt;
}

QCoro::Task<Answer> take(QString screen)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        co_return Answer{{}, QStringLiteral("no hay descriptores")};
    Descriptor out(ends[0]);
    Descriptor in(ends[1]);
    enlarge(in);
    QDBusMessage reply;
    {
        auto pending = BusCall::ask(QDBusConnection::sessionBus(), request(screen, in), patience);
        in = Descriptor();
        reply = co_await pending;
    } // From here on KWin alone holds that end, and closing it is the end of the picture.
    const auto layout = layoutOf(descriptionIn(reply));
    if (!layout)
        co_return Answer{{}, problemOf(reply)};
    QImage image(layout->size, layout->format);
    if (image.isNull())
        co_return Answer{{}, QStringLiteral("no hay memoria")};
    PipeReader reader(std::move(out), std::span(image.bits(), static_cast<size_t>(image.sizeInBytes())));
    co_await qCoro(&reader, &PipeReader::ended, patience);
    if (!reader.complete())
        co_return Answer{{}, QStringLiteral("imagen incompleta")};
    co_return Answer{opaque(std::move(image)), {}};
}

} // namespace KWinPicture
