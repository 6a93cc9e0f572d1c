#include "platform/wayland/ScreencopyGrabber.h"
#include "platform/wayland/Connection.h"

#include "support/Wallpaper.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTest>

#include <QCoroTask>

#include <csignal>

// What the compositor's own tool sees is the measure.
class ScreencopyGrabberTest : public QObject {
    Q_OBJECT

    std::shared_ptr<Connection> connection = Connection::open();
    ScreencopyGrabber grabber{connection};

    static QByteArray run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished() && process.exitCode() == 0 ? process.readAllStandardOutput()
                                                                    : QByteArray();
    }

    static void sway(const QString &command) { run("swaymsg", {command}); }

    static QImage seen(const QString &output)
    {
        return QImage::fromData(run("grim", {"-t", "ppm", "-o", output, "-"}))
            .convertToFormat(QImage::Format_RGB32);
    }

    static QString wallpaper()
    {
        const QString path = qEnvironmentVariable("XDG_RUNTIME_DIR") + "/wallpaper.png";
        Wallpaper::make({800, 800}).save(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther);
        return path;
    }

    [[nodiscard]] ScreenSource::Result grab() { return QCoro::waitFor(grabber.grab()); }

    // Without a picture where the capture failed.
    [[nodiscard]] std::vector<ScreenShot> shots() { return grab().shots.value_or(std::vector<ScreenShot>()); }

    static qsizetype mappedPictures()
    {
        QFile maps("/proc/self/maps");
        return maps.open(QFile::ReadOnly) ? maps.readAll().count("vellumora-picture") : -1;
    }

    // How much of the memory that is kept has something in it, and not zeros only.
    static int filledPictures()
    {
        int filled = 0;
        for (const QFileInfo &link : QDir("/proc/self/fd").entryInfoList(QDir::System | QDir::Files)) {
            QFile memory(link.filePath());
            if (!link.symLinkTarget().contains("vellumora-picture") || !memory.open(QFile::ReadOnly))
                continue;
            const QByteArray bytes = memory.readAll();
            filled += bytes.count('\0') < bytes.size() ? 1 : 0;
        }
        return filled;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(connection);
        QVERIFY(grabber.offered());
        sway("output * bg " + wallpaper() + " stretch");
        QTRY_VERIFY(Wallpaper::isUpright(seen("HEADLESS-1")) && Wallpaper::isUpright(seen("HEADLESS-2")));
    }

    void cleanup()
    {
        sway("output HEADLESS-2 enable resolution 800x600 position 640 0 scale 1 transform normal");
        QTRY_COMPARE(QGuiApplication::screens()[1]->geometry(), QRect(640, 0, 800, 600));
        QTRY_VERIFY(Wallpaper::isUpright(seen("HEADLESS-2")));
    }

    void everyScreenIsReadPixelForPixel()
    {
        const auto all = shots();
        QCOMPARE(all.size(), 2U);
        for (size_t i = 0; i < all.size(); ++i) {
            QCOMPARE(all[i].screen, QGuiApplication::screens()[qsizetype(i)]);
            QCOMPARE(all[i].image, seen(all[i].screen->name()));
        }
        QCOMPARE(all[0].scale, 2.0);
        QCOMPARE(all[0].pointSize, QSizeF(640, 400));
        QCOMPARE(all[1].scale, 1.0);
        QCOMPARE(all[1].pointSize, QSizeF(800, 600));
    }

    void aScaleMayBeAnyNumber()
    {
        sway("output HEADLESS-2 scale 1.5");
        QTRY_COMPARE(QGuiApplication::screens()[1]->geometry().size(), QSize(533, 400));
        const auto all = shots();
        QCOMPARE(all.size(), 2U);
        QCOMPARE(all[1].image.size(), QSize(800, 600));
        QCOMPARE(all[1].scale, 1.5);
    }

    void aTurnedScreenIsUpright_data()
    {
        QTest::addColumn<QString>("transform");
        for (const char *transform :
             {"90", "180", "270", "flipped", "flipped-90", "flipped-180", "flipped-270"})
            QTest::newRow(transform) << transform;
    }

    void aTurnedScreenIsUpright()
    {
        QFETCH(QString, transform);
        const QSize size
            = transform.contains("90") || transform.contains("270") ? QSize(600, 800) : QSize(800, 600);
        sway("output HEADLESS-2 transform " + transform);
        QTRY_COMPARE(QGuiApplication::screens()[1]->geometry().size(), size);
        QTRY_VERIFY(Wallpaper::isUpright(seen("HEADLESS-2")));
        const auto all = shots();
        QCOMPARE(all.size(), 2U);
        QVERIFY(Wallpaper::isUpright(all[1].image));
        QCOMPARE(all[1].image, seen("HEADLESS-2"));
        QCOMPARE(all[1].pointSize, QSizeF(size));
    }

    void nothingStaysWhenThePicturesAreGone()
    {
        QCOMPARE(mappedPictures(), 0);
        auto first = shots();
        QCOMPARE(mappedPictures(), 2);
        const QImage copy = first[0].image.copy();
        auto second = shots(); // does not write over what is looked at
        QCOMPARE(mappedPictures(), 4);
        QCOMPARE(first[0].image, copy);
        QCOMPARE(filledPictures(), 4);
        first.clear();
        QCOMPARE(mappedPictures(), 2);
        second.clear();
        QCOMPARE(filledPictures(), 0);
    }

    void aCompositorThatHangsIsGivenUp()
    {
        const auto process = pid_t(qEnvironmentVariableIntValue("SWAY_PID"));
        kill(process, SIGSTOP);
        const auto result = grab();
        kill(process, SIGCONT);
        QVERIFY(!result.shots);
        QVERIFY(result.final);
        QCOMPARE(shots().size(), 2U);
    }
};

QTEST_MAIN(ScreencopyGrabberTest)
#include "ScreencopyGrabberTest.moc"
