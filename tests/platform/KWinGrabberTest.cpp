#include "platform/wayland/KWinGrabber.h"
#include "platform/wayland/KWinPicture.h"
#include "platform/wayland/PipeReader.h"

#include "support/Wallpaper.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <QCoroTask>

#include <csignal>

namespace {

// Shows the wallpaper over a whole screen, pixel for pixel.
class Covering final : public QRasterWindow {
public:
    explicit Covering(QScreen &screen)
    {
        setScreen(&screen);
        setGeometry(screen.geometry());
        showFullScreen();
    }

    [[nodiscard]] QImage picture() const { return Wallpaper::make(size() * devicePixelRatio()); }

private:
    void paintEvent(QPaintEvent *) override
    {
        QImage image = picture();
        image.setDevicePixelRatio(devicePixelRatio());
        QPainter(this).drawImage(0, 0, image);
    }
};

QVariantMap description()
{
    return {{"type", "raw"}, {"width", 4U}, {"height", 2U}, {"stride", 16U}, {"format", 6U}};
}

} // namespace

class KWinGrabberTest : public QObject {
    Q_OBJECT

    KWinGrabber grabber;
    std::vector<std::unique_ptr<Covering>> windows;

    [[nodiscard]] ScreenSource::Result grab() { return QCoro::waitFor(grabber.grab()); }
    [[nodiscard]] std::vector<ScreenShot> shots() { return grab().shots.value_or(std::vector<ScreenShot>()); }

    // Tells KWin until it does so: it loses what it hears while it arranges its outputs.
    static bool change(const QString &setting, int screen, QSize size)
    {
        constexpr int patience = 2000; // milliseconds, each of the times
        bool came = false;
        for (int times = 0; times < 5 && !came; ++times) {
            QProcess::execute("kscreen-doctor", {setting});
            came = QTest::qWaitFor(
                [&] { return QGuiApplication::screens()[screen]->geometry().size() == size; }, patience);
        }
        return came;
    }

    // The screens show the wallpapers at the last change's scale and rotation.
    [[nodiscard]] bool settled()
    {
        const auto all = shots();
        for (size_t i = 0; i < windows.size(); ++i)
            if (i >= all.size() || all[i].image != windows[i]->picture())
                return false;
        return !windows.empty();
    }

    void cover()
    {
        windows.clear();
        for (QScreen *screen : QGuiApplication::screens())
            windows.push_back(std::make_unique<Covering>(*screen));
    }

private slots:
    void init() { cover(); }

    void everyScreenIsReadPixelForPixel()
    {
        QTRY_VERIFY(settled());
        const auto all = shots();
        QCOMPARE(all.size(), 2U);
        QCOMPARE(all[0].screen, QGuiApplication::screens()[0]);
        QCOMPARE(all[1].pointSize, QSizeF(1280, 800));
        QCOMPARE(all[1].image.format(), QImage::Format_RGB32);
    }

    void aTurnedScreenIsUpright()
    {
        QVERIFY(change("output.2.rotation.left", 1, QSize(800, 1280)));
        cover();
        QTRY_VERIFY(settled());
        QVERIFY(Wallpaper::isUpright(shots()[1].image));
        QVERIFY(change("output.2.rotation.none", 1, QSize(1280, 800)));
    }

    void aKWinThatHangsIsGivenUp()
    {
        const auto process = pid_t(qEnvironmentVariableIntValue("KWIN_PID"));
        kill(process, SIGSTOP);
        const auto result = grab();
        kill(process, SIGCONT);
        QVERIFY(!result.shots);
        QVERIFY(!result.problem.isEmpty());
        QTRY_VERIFY(settled());
    }

    void aPictureComesInPiecesAndIsNoneIfItEndsTooSoon()
    {
        for (const bool whole : {true, false}) {
            int ends[2];
            QCOMPARE(pipe(ends), 0);
            uchar bytes[6] = {};
            PipeReader reader(Descriptor{ends[0]}, bytes);
            QSignalSpy ended(&reader, &PipeReader::ended);
            QCOMPARE(write(ends[1], "abc", 3), 3);
            QTRY_COMPARE(bytes[2], uchar('c'));
            QVERIFY(!reader.complete() && ended.isEmpty());
            if (whole)
                QCOMPARE(write(ends[1], "defg", 4), 4); // one more than agreed
            close(ends[1]);
            QTRY_COMPARE(ended.size(), 1);
            QCOMPARE(reader.complete(), whole);
            QCOMPARE(bytes[5], uchar(whole ? 'f' : '\0'));
        }
    }

    void whatCannotBeReadIsRefused()
    {
        QVERIFY(KWinPicture::layoutOf(description()));
        const std::initializer_list<std::pair<QString, QVariant>> wrongs{
            {"type", "png"}, {"width", 0},        {"width", -4}, {"width", QVariant()}, {"height", 100000},
            {"stride", 15},  {"stride", 1 << 30}, {"format", 0}, {"format", 24},        {"format", 4096}};
        for (const auto &[key, value] : wrongs) {
            auto wrong = description();
            wrong[key] = value;
            QVERIFY2(!KWinPicture::layoutOf(wrong), qPrintable(key + ' ' + value.toString()));
        }
    }
};

QTEST_MAIN(KWinGrabberTest)
#include "KWinGrabberTest.moc"
