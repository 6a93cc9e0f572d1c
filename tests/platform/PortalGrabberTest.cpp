#include "platform/wayland/PortalGrabber.h"
#include "platform/wayland/Connection.h"

#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTest>

#include <QCoroTask>

using namespace std::chrono_literals;

// The outputs are 640x400 points at scale 2 and, to the right, 800x600 at scale 1.
class PortalGrabberTest : public QObject {
    Q_OBJECT

    TempHome home;
    SessionBusDaemon bus;
    std::shared_ptr<Connection> connection = Connection::open();
    PortalGrabber grabber{connection, 2s};
    const QString file = home.path("picture.png");

    [[nodiscard]] ScreenSource::Result grab() { return QCoro::waitFor(grabber.grab()); }

    [[nodiscard]] ScreenSource::Result grabFrom(const QString &portal)
    {
        const BusService service("/usr/bin/python3", {QFINDTESTDATA("../support/portal.py"), portal});
        return grab();
    }

    // The desktop at twice its size in points, with noise on the first screen and
    // every pixel of the second one doubled.
    static QImage desktop()
    {
        QImage image(2880, 1200, QImage::Format_RGB32);
        image.fill(Qt::black);
        for (int y = 0; y < 800; ++y)
            for (int x = 0; x < 1280; ++x)
                image.setPixel(x, y, qRgb(x * 7, y * 11, x * y));
        QPainter painter(&image);
        painter.fillRect(1280, 0, 1600, 1200, qRgb(0, 90, 180));
        painter.fillRect(1280, 0, 200, 100, Qt::red);
        return image;
    }

    static QByteArray pngOf(const QImage &image)
    {
        QBuffer buffer;
        buffer.open(QBuffer::WriteOnly);
        image.save(&buffer, "png");
        return buffer.data();
    }

    void save(const QImage &image) const { QVERIFY(image.save(file)); }

private slots:
    void initTestCase() { QVERIFY(connection); }

    void aPictureIsCutAndItsFileDeleted()
    {
        save(desktop());
        const auto result = grabFrom("file://" + file);
        QVERIFY2(result.shots, qPrintable(result.problem));
        QVERIFY(!QFile::exists(file));
        const auto &shots = *result.shots;
        QCOMPARE(shots.size(), 2U);
        QCOMPARE(shots[0].screen, QGuiApplication::screens()[0]);
        QCOMPARE(shots[0].image, desktop().copy(0, 0, 1280, 800));
        QCOMPARE(shots[0].scale, 2.0);
        QCOMPARE(shots[1].image.size(), QSize(800, 600));
        QCOMPARE(shots[1].image.pixel(98, 48), qRgb(255, 0, 0));
        QCOMPARE(shots[1].image.pixel(101, 48), qRgb(0, 90, 180));
        // Only the second one had to be made smaller.
        QCOMPARE(home.log().count("no da los píxeles propios de HEADLESS-2"), 1);
        QVERIFY(!home.log().contains("HEADLESS-1"));
    }

    void whatIsNoPictureOfTheScreensIsRefusedAndDeleted_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray png = pngOf(desktop());
        const QByteArray small = pngOf(desktop().copy(0, 0, 1280, 800));
        QTest::newRow("an empty file") << QByteArray();
        QTest::newRow("not a picture") << QByteArray("hello");
        QTest::newRow("cut off") << png.first(png.size() / 2);
        QTest::newRow("only its head") << png.first(40);
        QTest::newRow("one screen of two") << small;
        QTest::newRow("larger than memory") << QByteArray("P6\n2000000000 2000000000\n255\n");
    }

    void whatIsNoPictureOfTheScreensIsRefusedAndDeleted()
    {
        QFETCH(QByteArray, content);
        QFile out(file);
        QVERIFY(out.open(QFile::WriteOnly));
        out.write(content);
        out.close();
        QVERIFY(!grabFrom("file://" + file).shots);
        QVERIFY(!QFile::exists(file));
    }

    void anAddressOfNothingIsRefused()
    {
        for (const QString address : {"", "nonsense", "file:///nowhere/at/all.png", "file:///proc",
                                      "http://127.0.0.1:9/picture.png", "file://elsewhere/picture.png"})
            QVERIFY2(!grabFrom(address).shots, qPrintable(address));
    }

    void aPortalThatDoesNotHelpIsGivenUp_data()
    {
        QTest::addColumn<QString>("portal");
        QTest::addColumn<QString>("problem");
        const auto row
            = [](const char *portal, const char *problem) { QTest::newRow(portal) << portal << problem; };
        row("cancelled", "cancelado");
        row("refused", "denegado");
        row("nothing", "imagen inservible");
        row("silent", "el portal no contesta");
        row("mute", "org.freedesktop.DBus.Error.NoReply");
        row("dies", "el portal ha muerto");
        row("dead", "el portal ha muerto");
    }

    void aPortalThatDoesNotHelpIsGivenUp()
    {
        QFETCH(QString, portal);
        const auto refused = grabFrom(portal);
        QVERIFY(!refused.shots);
        QTEST(refused.problem, "problem");
        // The next request is a new one.
        save(desktop());
        QVERIFY(grabFrom("file://" + file).shots);
    }

    void withoutABusThereIsNoPicture()
    {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        QVERIFY(!grab().shots);
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    }
};

QTEST_MAIN(PortalGrabberTest)
#include "PortalGrabberTest.moc"
