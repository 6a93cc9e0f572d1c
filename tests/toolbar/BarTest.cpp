#include "toolbar/Bar.h"
#include "toolbar/BarButton.h"
#include "toolbar/BarButtonPaint.h"
#include "toolbar/BarLayout.h"
#include "toolbar/Theme.h"

#include <QPainter>
#include <QTest>

class BarTest : public QObject {
    Q_OBJECT

    static BarButtonState state(const char *flags)
    {
        const QByteArray set(flags);
        BarButtonState state;
        state.isPrimary = set.contains('P');
        state.isActive = set.contains('a');
        state.pressed = set.contains('p');
        state.hovering = set.contains('h');
        return state;
    }

private slots:
    void piecesFollowEachOther()
    {
        using BarLayout::Kind;
        const QList<BarLayout::Item> items{
            {Kind::button}, {Kind::decoration}, {Kind::separator}, {Kind::button, 70}};
        const auto across = BarLayout::layOut(Qt::Horizontal, items);
        QCOMPARE(across.items,
                 (QList<QRectF>{{5, 5, 32, 32}, {0, 0, 127, 42}, {45, 12, 1, 18}, {52, 5, 70, 32}}));
        QCOMPARE(across.size, QSizeF(127, 42));
        const auto down = BarLayout::layOut(Qt::Vertical, items);
        QCOMPARE(down.items.at(2), QRectF(11, 45, 20, 1));
        QCOMPARE(down.items.at(3), QRectF(5, 52, 32, 32)); // square, whatever it would like
        QCOMPARE(BarLayout::layOut(Qt::Horizontal, {}).size, QSizeF(8, 42));
        QCOMPARE(BarLayout::layOut(Qt::Horizontal, {{Kind::separator}, {Kind::separator}}).size.width(),
                 34.0);
        QCOMPARE(BarLayout::edge({20, 42}).width(), 0.0);
    }

    void theStrongestStateFillsTheButton_data()
    {
        QTest::addColumn<QByteArray>("flags");
        QTest::addColumn<double>("alpha");
        QTest::newRow("at rest") << QByteArray("") << 0.0;
        QTest::newRow("hovering") << QByteArray("h") << 0.10;
        QTest::newRow("pressed") << QByteArray("hp") << 0.18;
        QTest::newRow("active") << QByteArray("ah") << 0.17;
        QTest::newRow("active and pressed") << QByteArray("ahp") << 0.26;
        QTest::newRow("primary") << QByteArray("Pahp") << 0.0; // its gradient is all it has
    }

    void theStrongestStateFillsTheButton()
    {
        QFETCH(QByteArray, flags);
        QFETCH(double, alpha);
        QVERIFY(qAbs(BarButtonPaint::fill(state(flags)).alphaF() - alpha) < 0.005);
    }

    void aButtonIsAsWideAsItsWords()
    {
        QCOMPARE(BarButtonPaint::preferredWidth(state("P")), 32.0);
        BarButtonState copy = state("P");
        copy.label = "Copy";
        const double plain = BarButtonPaint::preferredWidth(copy);
        copy.keyHint = "C";
        QVERIFY(plain > 32 + 12 && BarButtonPaint::preferredWidth(copy) > plain + 18);
        BarButtonState swatch;
        swatch.swatch = Qt::red;
        QCOMPARE(BarButtonPaint::preferredWidth(swatch), 32.0);
        swatch.widthLabel = "3 px";
        QVERIFY(BarButtonPaint::preferredWidth(swatch) > 43);
    }

    void aChangedTextLaysTheBarOutAtOnce()
    {
        Bar bar(Qt::Horizontal);
        auto *color = new BarButton("circle.fill");
        auto *last = new BarButton("xmark");
        bar.addButton(color);
        bar.addButton(last);
        const int before = bar.width();
        color->setSwatch(Qt::red);
        color->setWidthLabel("36 px");
        QVERIFY(bar.width() > before);
        QCOMPARE(last->geometry().right() + 1, bar.width() - 5);
    }

    void theBarKeepsItsClicks()
    {
        QWidget editor;
        editor.resize(400, 100);
        Bar bar(Qt::Horizontal, &editor);
        auto *button = new BarButton("xmark");
        bar.addButton(button);
        bar.addSeparator();
        int clicks = 0;
        connect(button, &BarButton::clicked, [&] { ++clicks; });
        editor.show();
        QTest::mouseClick(button, Qt::LeftButton);
        QMouseEvent press(QEvent::MouseButtonPress, {42, 20}, {42, 20}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&bar, &press);
        QVERIFY(press.isAccepted());
        QCOMPARE(clicks, 1);
    }

    void aSwatchShowsItsColourAtEveryScale_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("1x") << 1.0;
        QTest::newRow("1.25x") << 1.25;
        QTest::newRow("2x") << 2.0;
    }

    void aSwatchShowsItsColourAtEveryScale()
    {
        QFETCH(double, scale);
        QImage image((QSizeF(90, 32) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::black);
        BarButtonState swatch;
        swatch.swatch = Theme::drawColors[4];
        swatch.widthLabel = "3 px";
        QPainter painter(&image);
        BarButtonPaint::draw(painter, {0, 0, 90, 32}, swatch, Qt::transparent);
        QCOMPARE(image.pixelColor((QPointF(17, 16) * scale).toPoint()).rgb(), Theme::drawColors[4].rgb());
        QCOMPARE(image.pixelColor((QPointF(3, 16) * scale).toPoint()), QColor(Qt::black));
    }
};

QTEST_MAIN(BarTest)
#include "BarTest.moc"
