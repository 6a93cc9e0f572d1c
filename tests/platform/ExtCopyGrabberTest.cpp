#include "platform/wayland/ExtCopyGrabber.h"
#include "platform/wayland/Connection.h"
#include "platform/wayland/WaylandScreenGrabber.h"

#include "support/PermissionStore.h"
#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"
#include "support/Wallpaper.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <QCoroTask>

namespace {

// A compositor with outputs of the names that the test's platform gives its screens.
// Rows of three bytes a pixel need some more on the second.
class Desk {
    BusService m_compositor; // before the connection to it

public:
    explicit Desk(const QString &behaviour = {})
        : m_compositor(VELLUMORA_COMPOSITOR, {"A:1920x1200", "B:1598x898:" + behaviour})
    {}

    std::shared_ptr<Connection> connection = Connection::open();

    [[nodiscard]] ScreenSource::Result grab() { return QCoro::waitFor(m_grabber.grab()); }
    // Without a picture where the capture failed.
    [[nodiscard]] std::vector<ScreenShot> shots() { return grab().shots.value_or(std::vector<ScreenShot>()); }
    // The buffers of all copies so far, each with its output.
    [[nodiscard]] QList<QByteArray> buffers() { return m_compositor.said().trimmed().split('\n'); }

private:
    ExtCopyGrabber m_grabber{connection};
};

const QImage wallpaperA = Wallpaper::make({1920, 1200});
const QImage wallpaperB = Wallpaper::make({1598, 898});

void table(std::initializer_list<const char *> behaviours)
{
    QTest::addColumn<QString>("behaviour");
    for (const char *behaviour : behaviours)
        QTest::newRow(behaviour) << behaviour;
}

} // namespace

class ExtCopyGrabberTest : public QObject {
    Q_OBJECT

    TempHome home;
    SessionBusDaemon bus;
    PermissionStore store;

private slots:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
        qputenv("WAYLAND_DISPLAY", "wayland-test");
        store.start(home);
        PermissionStore::answer("", "no");
    }

    void everyScreenIsReadPixelForPixel()
    {
        Desk desk;
        const auto all = desk.shots();
        QCOMPARE(all.size(), 2U);
        QCOMPARE(all[0].screen, QGuiApplication::screens()[0]);
        QCOMPARE(all[0].image, wallpaperA);
        QCOMPARE(all[0].pointSize, QSizeF(960, 600));
        QCOMPARE(all[0].image.pixel(700, 700) >> 24, 255U);
        QCOMPARE(all[1].image, wallpaperB);
    }

    void whateverTheBufferIsLikeThePictureIsTheSame_data()
    {
        table({"turned=1", "turned=2", "turned=3", "turned=4", "turned=5", "turned=6", "turned=7",
               "format=AR24", "format=XB24", "format=XB30", "format=BG24", "changes", "wavers"});
    }

    void whateverTheBufferIsLikeThePictureIsTheSame()
    {
        QFETCH(QString, behaviour);
        Desk desk(behaviour);
        const auto all = desk.shots();
        QCOMPARE(all.size(), 2U);
        QCOMPARE(all[0].image, wallpaperA);
        QCOMPARE(all[1].image, wallpaperB);
    }

    void buffersAreUsedAgain()
    {
        Desk desk;
        QCOMPARE(desk.shots().size(), 2U);
        QCOMPARE(desk.shots().size(), 2U);
        QTRY_COMPARE(desk.buffers().size(), 4);
        QCOMPARE(desk.buffers().mid(0, 2), desk.buffers().mid(2));
    }

    void anOutputThatGoesIsLeftOut()
    {
        Desk desk("goes");
        const auto all = desk.shots();
        QCOMPARE(all.size(), 1U);
        QCOMPARE(all[0].image, wallpaperA);
    }

    void whereItIsRefusedAnotherWayIsTried_data()
    {
        table({"refuses", "stops", "closed", "restless", "format=none"});
    }

    void whereItIsRefusedAnotherWayIsTried()
    {
        QFETCH(QString, behaviour);
        Desk desk(behaviour);
        const auto result = desk.grab();
        QVERIFY(!result.shots && !result.final);
        QCOMPARE(result.problem, QString("el compositor se niega"));
    }

    void aCompositorThatSaysNothingIsGivenUp()
    {
        Desk desk("silent");
        const auto result = desk.grab();
        QVERIFY(!result.shots && result.final);
    }

    void whoRefusedThePortalIsHeardOnlyWhereItIsNeeded()
    {
        Desk copying;
        const auto grabber = makeWaylandScreenGrabber(copying.connection);
        QVERIFY(QCoro::waitFor(grabber->grabScreens()));
        QVERIFY(grabber->accessGranted());
        const auto found = QDBusConnection::sessionBus().call(PermissionStore::lookUp());
        QCOMPARE(found.type(), QDBusMessage::ReplyMessage);
        QCoreApplication::processEvents();
        QVERIFY(grabber->accessGranted());
    }

    void itComesBeforeKWinAndThePortal()
    {
        Desk refusing("refuses");
        const auto grabber = makeWaylandScreenGrabber(refusing.connection);
        QVERIFY(!QCoro::waitFor(grabber->grabScreens()));
        QVERIFY(home.log().contains("captura por otra vía: wlr-screencopy: no se ofrece; "
                                    "ext-image-copy-capture: el compositor se niega; KWin: "));
        QTRY_VERIFY(!grabber->accessGranted());
    }
};

QTEST_MAIN(ExtCopyGrabberTest)
#include "ExtCopyGrabberTest.moc"
