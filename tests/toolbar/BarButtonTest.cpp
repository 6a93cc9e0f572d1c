#include "toolbar/BarButton.h"
#include "base/Fonts.h"
#include "base/Painting.h"
#include "toolbar/Theme.h"

#include <QPainter>
#include <QTest>

class BarButtonTest : public QObject {
    Q_OBJECT

    static QImage drawn(const BarButtonState &state, QSizeF size = {32, 32}, double scale = 2)
    {
        QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        BarButtonPaint::draw(painter, {{0, 0}, size}, state, BarButtonPaint::fill(state));
        return image;
    }

private slots:
    void theStrongerStateFillsTheButton_data()
    {
        QTest::addColumn<BarButtonState>("state");
        QTest::addColumn<double>("alpha");
        QTest::newRow("rest") << BarButtonState{} << 0.0;
        QTest::newRow("hover") << BarButtonState{.hovering = true} << 0.10;
        QTest::newRow("press beats hover") << BarButtonState{.hovering = true, .pressed = true} << 0.18;
        QTest::newRow("active beats hover") << BarButtonState{.isActive = true, .hovering = true} << 0.17;
        QTest::newRow("active pressed") << BarButtonState{.isActive = true, .pressed = true} << 0.26;
        QTest::newRow("primary beats all")
            << BarButtonState{.isActive = true, .isPrimary = true, .pressed = true} << 0.0;
    }

    void theStrongerStateFillsTheButton()
    {
        QFETCH(BarButtonState, state);
        QFETCH(double, alpha);
        QVERIFY(qAbs(BarButtonPaint::fill(state).alphaF() - alpha) < 0.001);
    }

    void onlyTextMakesAButtonWide()
    {
        const auto width = [](const BarButtonState &state) { return BarButtonPaint::preferredWidth(state); };
        QCOMPARE(width({.isPrimary = true, .keyHint = "⌘C"}), 32);
        QCOMPARE(width({.swatch = Qt::red}), 32);
        QCOMPARE(width({.widthLabel = "3 px"}), 32);
        const double plain = width({.isPrimary = true, .label = "Copy"});
        QVERIFY(width({.isPrimary = true, .label = "Copy", .keyHint = "⌘C"}) > plain + 18);
        QCOMPARE(width({.swatch = Qt::red, .widthLabel = "11 px"}),
                 width({.swatch = Qt::red, .widthLabel = "48 px"})); // digits are equally wide
    }

    // Fonts have whole sizes; this one lies between two.
    void theWidthIsWrittenInElevenAndAHalfPoints()
    {
        const BarButtonState state{.swatch = Qt::red, .widthLabel = "48 px"};
        const auto larger = Painting::sizeOf({.text = "48 px",
                                              .font = Fonts::system(12, QFont::DemiBold),
                                              .digits = Painting::Digits::sameWidth});
        QVERIFY(qAbs(BarButtonPaint::preferredWidth(state) - 43 - larger.width() * 11.5 / 12) < 0.4);
    }

    void theSwatchStandsWhereTheGlyphWould()
    {
        const QImage image = drawn({.symbol = "xmark", .swatch = Qt::blue});
        QCOMPARE(image.pixelColor(34, 32), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(60, 4).alpha(), 0);
    }

    void theDotMarksOnlyAnActiveButton()
    {
        const BarButtonState active{.isActive = true, .dotColor = Qt::red};
        const BarButtonState resting{.dotColor = Qt::red};
        QCOMPARE(drawn(active).pixelColor(32, 56), QColor(Qt::red)); // 4 points from the bottom
        QCOMPARE(drawn(resting).pixelColor(32, 56).alpha(), 0);
    }

    void theBorderIsOfActiveButtonsThatAreNotPrimary()
    {
        const int fill = qRound(255 * Theme::activeFill.alphaF());
        QVERIFY(drawn({.isActive = true}).pixelColor(0, 32).alpha() > fill + 20);
        QCOMPARE(drawn({.isPrimary = true}).pixelColor(0, 40),
                 drawn({.isActive = true, .isPrimary = true}).pixelColor(0, 40));
    }

    void theGlossFadesFromTheMiddleUpwards()
    {
        const QImage image = drawn({.isPrimary = true}, {120, 32}, 1);
        const int above = image.pixelColor(30, 15).red();
        QVERIFY(above > image.pixelColor(30, 17).red() + 20);
        QVERIFY(above > image.pixelColor(30, 2).red() + 20);
        QVERIFY(image.pixelColor(4, 24).blue() > image.pixelColor(4, 24).red() + 60);
        QVERIFY(image.pixelColor(115, 24).red() > 150); // blue at the left, violet at the right
    }

    void pressAndHoverShadeTheGlossToo()
    {
        const auto image = [](bool hovering, bool pressed) {
            return drawn({.isPrimary = true, .hovering = hovering, .pressed = pressed}, {120, 32}, 1);
        };
        const QImage plain = image(false, false);
        for (const QPoint at : {QPoint{100, 15}, QPoint{100, 8}, QPoint{100, 25}}) {
            const int green = plain.pixelColor(at).green();
            QVERIFY(qAbs(image(true, true).pixelColor(at).green() - green * 0.84) <= 1);
            QVERIFY(qAbs(image(true, false).pixelColor(at).green() - (green * 0.92 + 255 * 0.08)) <= 1);
        }
    }

    void hoverAndPressFadeToTheirFills()
    {
        BarButton button("no.such");
        button.setAttribute(Qt::WA_TranslucentBackground);
        const auto shown = [&] { return button.grab().toImage().pixelColor(16, 16).alpha(); };
        QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
        QCoreApplication::sendEvent(&button, &enter);
        QCOMPARE(shown(), 0); // not at once
        QTRY_COMPARE(shown(), qRound(255 * 0.10));
        QTest::mousePress(&button, Qt::LeftButton);
        QVERIFY(button.state().pressed);
        QTRY_COMPARE(shown(), qRound(255 * 0.18));
        QTest::mouseRelease(&button, Qt::LeftButton);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&button, &leave);
        QTRY_COMPARE(shown(), 0);
    }
};

QTEST_MAIN(BarButtonTest)
#include "BarButtonTest.moc"
