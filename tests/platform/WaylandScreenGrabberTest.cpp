#include "platform/wayland/WaylandScreenGrabber.h"
#include "platform/wayland/Connection.h"

#include "support/SessionBusDaemon.h"
#include "support/TempHome.h"
#include "support/Wallpaper.h"

#include <QFile>
#include <QGuiApplication>
#include <QTest>

#include <QCoroTask>

// In a session of KWin, which copies nothing itself and lets only those programs see
// the screens whose desktop entry asks for it.
class WaylandScreenGrabberTest : public QObject {
    Q_OBJECT

    TempHome home;
    const QString file = home.path("picture.png");
    const QImage desktop = Wallpaper::make({2560, 800});
    std::unique_ptr<ScreenGrabber> grabber = makeWaylandScreenGrabber(Connection::open());

    [[nodiscard]] auto grab() { return QCoro::waitFor(grabber->grabScreens()); }

    [[nodiscard]] qsizetype falls() const { return home.log().count("captura por otra vía"); }

private slots:
    void init() { QVERIFY(desktop.save(file)); }

    void whereKWinRefusesThePortalIsAsked()
    {
        const BusService portal("/usr/bin/python3",
                                {QFINDTESTDATA("../support/portal.py"), "file://" + file});
        QVERIFY(grabber->accessGranted());
        const auto shots = grab();
        QVERIFY(shots);
        QCOMPARE(shots->size(), 2U);
        QCOMPARE(shots->at(0).image, desktop.copy(0, 0, 1280, 800));
        QCOMPARE(shots->at(1).image, desktop.copy(1280, 0, 1280, 800));
        QCOMPARE(falls(), 1);
        QVERIFY(home.log().contains("wlr-screencopy: no se ofrece; ext-image-copy-capture: no se ofrece; "
                                    "KWin: org.kde.KWin.ScreenShot2.Error.NoAuthorized"));
        // Said once, not at every capture.
        QVERIFY(desktop.save(file));
        QVERIFY(grab());
        QCOMPARE(falls(), 1);
    }

    void itMayBeGoneBeforeTheAnswerComes()
    {
        const BusService portal("/usr/bin/python3",
                                {QFINDTESTDATA("../support/portal.py"), "file://" + file});
        auto pending = grabber->grabScreens();
        grabber.reset();
        QVERIFY(QCoro::waitFor(std::move(pending)));
        grabber = makeWaylandScreenGrabber(Connection::open());
    }
};

QTEST_MAIN(WaylandScreenGrabberTest)
#include "WaylandScreenGrabberTest.moc"
