#include "toolbar/ColorPalette.h"
#include "support/Mouse.h"
#include "support/TempHome.h"
#include "toolbar/ColorHex.h"
#include "toolbar/RecentColors.h"

#include <QTest>

class ColorPaletteTest : public QObject {
    Q_OBJECT

    TempHome home;

    static QImage picture(ColorPalette &palette)
    {
        QImage image(122, 134, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        palette.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

private slots:
    void init() { RecentColors::add(QColor(1, 2, 3)); }

    void aClickCallsBackWithTheColour()
    {
        ColorPalette palette;
        QStringList heard;
        palette.onPick = [&](const QColor &color) { heard.append(hex(color)); };
        palette.onEyedropper = [&] { heard.append("eyedropper"); };
        Mouse mouse(palette, palette.height());
        for (const double y : {17.0, 39.0, 65.0, 78.0, 91.0, 113.0})
            mouse.press({17, palette.height() - y});
        QCOMPARE(heard, (QStringList{"#FF3B30", "#B052DE", "eyedropper", "#010203", "eyedropper"}));
    }

    void nobodyNeedsToListen()
    {
        ColorPalette palette;
        Mouse mouse(palette, palette.height());
        mouse.press({17, 117});
        mouse.press({60, 69});
    }

    void aPaletteKeepsTheColoursItOpenedWith()
    {
        ColorPalette palette;
        RecentColors::add(QColor(200, 100, 50));
        QCOMPARE(picture(palette).pixelColor(17, 91), QColor(1, 2, 3));
        ColorPalette next;
        QCOMPARE(picture(next).pixelColor(17, 91), QColor(200, 100, 50));
    }

    void theRingMarksEveryDotOfTheColour()
    {
        RecentColors::add(Qt::white);
        ColorPalette palette;
        QPalette accent;
        accent.setColor(QPalette::Highlight, Qt::green);
        palette.setPalette(accent);
        const auto ringed = [&](QPoint left) { return picture(palette).pixelColor(left).green() > 200; };
        const QPoint fixedWhite(49, 39); // left of the dots
        const QPoint recentWhite(5, 91);
        QVERIFY(!ringed(recentWhite));
        palette.setSelected(QColor(255, 255, 255, 40));
        QVERIFY(ringed(fixedWhite));
        QVERIFY(ringed(recentWhite));
    }

    void theEditorKeepsTheKeyboard()
    {
        ColorPalette palette;
        QCOMPARE(palette.focusPolicy(), Qt::NoFocus);
        QCOMPARE(palette.accessibleName(), "Colours");
        QCOMPARE(palette.size(), QSize(122, 134));
    }
};

QTEST_MAIN(ColorPaletteTest)
#include "ColorPaletteTest.moc"
