#include "platform/wayland/Compositor.h"
#include "platform/wayland/QtQueue.h"
#include "platform/wayland/WaylandWindowPlacer.h"

#include <QFile>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QScreen>
#include <QTest>

#include <memory>

// What the compositor's own tool sees is the measure.
class LayerStoreTest : public QObject {
    Q_OBJECT

    // Shows a picture of the screen's own pixels, and paints only what it is told to.
    class Sheet : public QWidget {
    public:
        QImage picture;

    protected:
        void paintEvent(QPaintEvent *event) override
        {
            QPainter painter(this);
            for (const QRect &rect : event->region()) {
                const double scale = picture.devicePixelRatio();
                painter.drawImage(rect, picture, QRectF(rect.topLeft() * scale, rect.size() * scale));
            }
        }
    };

    std::shared_ptr<QtQueue> queue = QtQueue::open();
    WaylandWindowPlacer placer{queue};
    QRandomGenerator random{7};

    static QImage seen(const QScreen &screen)
    {
        QProcess grim;
        grim.start("grim", {"-t", "ppm", "-o", screen.name(), "-"});
        if (!grim.waitForFinished())
            return {};
        QImage image = QImage::fromData(grim.readAllStandardOutput()).convertToFormat(QImage::Format_RGB32);
        image.setDevicePixelRatio(screen.devicePixelRatio());
        return image;
    }

    static std::unique_ptr<Sheet> sheetFor(const QScreen &screen)
    {
        auto sheet = std::make_unique<Sheet>();
        sheet->setAttribute(Qt::WA_OpaquePaintEvent);
        sheet->picture = QImage(screen.size() * screen.devicePixelRatio(), QImage::Format_RGB32);
        sheet->picture.setDevicePixelRatio(screen.devicePixelRatio());
        sheet->picture.fill(Qt::darkCyan);
        return sheet;
    }

    // Draws something anywhere and has only that repainted.
    void change(Sheet &sheet)
    {
        const QRect all = sheet.rect();
        const QPoint at(random.bounded(all.width()), random.bounded(all.height()));
        const QSize size(random.bounded(1, all.width()), random.bounded(1, all.height() / 4));
        const QRect rect = QRect(at, size) & all;
        QPainter(&sheet.picture).fillRect(rect, QColor::fromRgb(random.generate()));
        sheet.update(rect);
    }

    // Has the compositor show the whole of the last picture, also what it has shown before.
    void showAnew(const QWidget &sheet)
    {
        wl_surface *surface = QtQueue::surfaceOf(*sheet.windowHandle());
        wl_surface_damage(surface, 0, 0, sheet.width(), sheet.height());
        wl_surface_commit(surface);
        QVERIFY(queue->roundtrip()); // what is seen next is of a frame after that
    }

    // How many pictures of a surface are in memory.
    static qsizetype pictures()
    {
        QFile maps("/proc/self/maps");
        return maps.open(QFile::ReadOnly) ? maps.readAll().count("vellumora-picture") : -1;
    }

private slots:
    void whateverIsPaintedShowsAtLast()
    {
        for (QScreen *screen : QGuiApplication::screens()) {
            auto sheet = sheetFor(*screen);
            placer.cover(*sheet, *screen);
            QVERIFY(QTest::qWaitForWindowExposed(sheet.get()));
            for (int step = 0; step < 60; ++step) {
                change(*sheet);
                QTest::qWait(step < 54 ? random.bounded(24) : 0); // longer than a frame, or many in one
            }
            for (int frame = 0; frame < 2; ++frame) {
                QTRY_COMPARE(seen(*screen), sheet->picture);
                showAnew(*sheet);
                QCOMPARE(seen(*screen), sheet->picture);
                change(*sheet);
            }
            QVERIFY(pictures() >= 2); // one is on the screen while the next is drawn
            QVERIFY(pictures() <= 3);
            placer.endSession();
            sheet.reset();
            QCOMPARE(pictures(), 0);
        }
    }

    void aNewSizeShowsWhole()
    {
        QScreen &screen = *QGuiApplication::screens().constFirst();
        const auto sheet = sheetFor(screen);
        placer.cover(*sheet, screen);
        QTRY_COMPARE(seen(screen), sheet->picture);
        QProcess::execute("swaymsg", {"output", screen.name(), "resolution", "1600x1000"});
        QTRY_COMPARE(sheet->size(), QSize(800, 500));
        sheet->picture = sheetFor(screen)->picture;
        sheet->picture.fill(Qt::darkRed);
        sheet->update();
        QTRY_COMPARE(seen(screen), sheet->picture);
        placer.endSession();
    }
};

int main(int argc, char **argv)
{
    Compositor::prepareQt(qEnvironmentVariable("WAYLAND_DISPLAY"));
    QApplication app(argc, argv);
    LayerStoreTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LayerStoreTest.moc"
