#include "toolbar/ColorPalette.h"
#include "support/Mouse.h"
#include "support/TempHome.h"
#include "toolbar/ColorHex.h"
#include "toolbar/ColorName.h"
#include "toolbar/PaletteAccess.h"
#include "toolbar/RecentColors.h"

#include <QAccessible>
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

    void everythingInItIsReadAndPressed()
    {
        PaletteAccess::install();
        ColorPalette palette;
        QStringList heard;
        palette.onPick = [&](const QColor &color) { heard.append(hex(color)); };
        palette.onEyedropper = [&] { heard.append("eyedropper"); };
        palette.setSelected(QColor(1, 2, 3));
        QCOMPARE(palette.focusPolicy(), Qt::NoFocus); // the editor keeps the keyboard
        auto *spoken = QAccessible::queryAccessibleInterface(&palette);
        QCOMPARE(spoken->text(QAccessible::Name), "Colours");
        QCOMPARE(spoken->childCount(), 10 + 1 + static_cast<int>(RecentColors::colors().size()));
        for (const int i : {0, 5, 10, 11}) {
            auto *item = spoken->child(i);
            QCOMPARE(spoken->indexOfChild(item), i);
            QCOMPARE(spoken->childAt(item->rect().center().x(), item->rect().center().y()), item);
            QCOMPARE(item->state().checked, i == 11);
            item->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        }
        QCOMPARE(heard, (QStringList{"#FF3B30", "#B052DE", "eyedropper", "#010203"}));
        QCOMPARE(spoken->child(11)->text(QAccessible::Name), "Black, #010203");
        for (const auto &[color, name] : {std::pair{"#7f0010", "Red"},
                                          {"#ffc0cb", "Pink"},
                                          {"#2f4f4f", "Turquoise"},
                                          {"#8b4513", "Brown"},
                                          {"#fffafa", "White"},
                                          {"#808084", "Grey"},
                                          {"#ff8c00", "Orange"}})
            QCOMPARE(colorName(QColor(color)), name);
    }
};

QTEST_MAIN(ColorPaletteTest)
#include "ColorPaletteTest.moc"
