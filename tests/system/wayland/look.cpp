// Asks the desktop itself for a picture, where no tool does it: KWin for one of its screens, without pointer,
// and GNOME for all of them.
//
//   look kwin SCREEN FILE.ppm
//   look gnome FILE.png
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusUnixFileDescriptor>
#include <QImage>
#include <QRect>
#include <QtConcurrent>

#include <unistd.h>

#include <cstdio>

namespace {

QByteArray readAll(int descriptor)
{
    QByteArray bytes;
    char part[1 << 16];
    for (ssize_t size = 0; (size = read(descriptor, part, sizeof part)) > 0;)
        bytes.append(part, size);
    close(descriptor);
    return bytes;
}

// Null when KWin refuses, with its reason on standard error.
QImage screenOfKwin(const QString &screen)
{
    int ends[2];
    if (pipe(ends) != 0)
        return {};
    QDBusInterface kwin("org.kde.KWin", "/org/kde/KWin/ScreenShot2", "org.kde.KWin.ScreenShot2");
    // The descriptor that is sent is a copy; once ours is closed, the end of the
    // picture is the end of the pipe.
    auto call = QDBusMessage::createMethodCall("org.kde.KWin", "/org/kde/KWin/ScreenShot2",
                                               "org.kde.KWin.ScreenShot2", "CaptureScreen");
    call << screen << QVariantMap{{"native-resolution", true}, {"include-cursor", false}}
         << QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]));
    close(ends[1]);
    const auto bytes = QtConcurrent::run(readAll, ends[0]);
    const QDBusReply<QVariantMap> reply = QDBusConnection::sessionBus().call(call);
    call = QDBusMessage();
    if (!reply.isValid()) {
        std::fprintf(stderr, "look: %s\n", qPrintable(reply.error().message()));
        return {};
    }
    const QVariantMap facts = reply.value();
    const QByteArray pixels = bytes.result();
    return QImage(reinterpret_cast<const uchar *>(pixels.constData()), facts["width"].toInt(),
                  facts["height"].toInt(), facts["stride"].toInt(), QImage::Format_RGB32)
        .copy();
}

// The shell gives pictures to those alone whom it knows by their name on the bus.
bool lookAtGnome(const QRect &part, const QString &file)
{
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerService("org.gnome.SettingsDaemon.MediaKeys"))
        return false;
    QDBusInterface shell("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot",
                         "org.gnome.Shell.Screenshot");
    const QDBusReply<bool> reply
        = shell.call("ScreenshotArea", part.x(), part.y(), part.width(), part.height(), false, file);
    if (!reply.isValid())
        std::fprintf(stderr, "look: %s\n", qPrintable(reply.error().message()));
    return reply.isValid() && reply.value();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc == 4 && arguments[1] == "kwin")
        return screenOfKwin(arguments[2]).save(arguments[3], "PPM") ? EXIT_SUCCESS : EXIT_FAILURE;
    if (argc == 7 && arguments[1] == "gnome") {
        const QRect part(arguments[2].toInt(), arguments[3].toInt(), arguments[4].toInt(),
                         arguments[5].toInt());
        return lookAtGnome(part, arguments[6]) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    return EXIT_FAILURE;
}
