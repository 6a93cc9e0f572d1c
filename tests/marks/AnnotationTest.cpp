#include "marks/Annotation.h"

#include "marks/ArrowShape.h"
#include "marks/Kinds.h"
#include "marks/MarkFootprint.h"
#include "marks/Pixelation.h"

#include "support/Canvas.h"
#include "support/Pictures.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

Annotation mark(Tool tool, QList<QPointF> points, double width = 3, const QColor &color = Qt::red)
{
    return {tool, color, width, std::move(points)};
}

Annotation text(const QString &words, const QColor &color = Qt::yellow, double size = 40)
{
    Annotation mark(Tool::text, color, 3, {{20, 100}});
    mark.text = words;
    mark.fontSize = size;
    return mark;
}

void showScreen(double scale)
{
    const ScreenShot shot = patternShot({400, 300}, scale);
    Annotation::background = shot.image;
    Annotation::backgroundScale = scale;
    Annotation::viewHeight = 300;
}

} // namespace

class AnnotationTest : public QObject {
    Q_OBJECT

    static void scales()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("1x") << 1.0;
        QTest::newRow("2x") << 2.0;
    }

private slots:
    void aPencilDrawsFromTwoPointsOnAndAClickIsARoundDot_data() { scales(); }
    void aPencilDrawsFromTwoPointsOnAndAClickIsARoundDot()
    {
        QFETCH(double, scale);
        Canvas canvas(scale);
        canvas.draw(mark(Tool::pencil, {{50, 50}}, 20));
        QCOMPARE(canvas.ink(), 0);
        canvas.draw(mark(Tool::pencil, {{50, 50}, {50, 50}}, 20));
        QCOMPARE(canvas.at({50, 50}), QColor(Qt::red));
        QCOMPARE(canvas.inkOnColumn(50), qRound(20 * scale));
        QCOMPARE(canvas.at({58, 58}), QColor(Qt::white)); // outside the circle, inside its box
    }

    void aMarkerIsWideAndTranslucentAlsoWhereItCrossesItself_data() { scales(); }
    void aMarkerIsWideAndTranslucentAlsoWhereItCrossesItself()
    {
        QFETCH(double, scale);
        Canvas canvas(scale);
        canvas.draw(
            mark(Tool::marker, {{50, 100}, {200, 100}, {200, 150}, {100, 150}, {100, 50}}, 3, Qt::black));
        const QColor veil(166, 166, 166); // 65 % of white
        QCOMPARE(canvas.at({60, 100}), veil);
        QCOMPARE(canvas.at({100, 100}), veil);
        QCOMPARE(canvas.inkOnColumn(60),
                 qRound(15 * scale) + (scale == 1 ? 1 : 0)); // 15 points, half pixels at both ends
        QCOMPARE(mark(Tool::marker, {}, 30).strokeWidth(), 120.0);
    }

    void anArrowsHeadFollowsItsWidth()
    {
        const auto lengthOf = [](double width) {
            const auto arrow = ArrowShape::of(mark(Tool::arrow, {{0, 0}, {100, 0}}, width));
            return QLineF(arrow->head[0], arrow->head[1]).length();
        };
        QCOMPARE(lengthOf(1), 10.0);
        QCOMPARE(lengthOf(3), 13.5);
        const auto arrow = ArrowShape::of(mark(Tool::arrow, {{0, 0}, {100, 0}}));
        QCOMPARE(arrow->shaft.p2(), QPointF(100 - 13.5 * 0.8, 0));
        QVERIFY(!ArrowShape::of(mark(Tool::arrow, {{0, 0}, {1.2, 1.6}}))); // two points long
        QVERIFY(!ArrowShape::of(mark(Tool::arrow, {})));
        Canvas canvas;
        canvas.draw(mark(Tool::arrow, {{50, 50}, {150, 50}}));
        QCOMPARE(canvas.at({143, 50}), QColor(Qt::red));
        QCOMPARE(canvas.at({151, 50}), QColor(Qt::white)); // the shaft does not poke through the tip
    }

    void rectanglesHaveSharpCornersAndEllipsesTouchTheirSides()
    {
        Canvas canvas;
        canvas.draw(mark(Tool::rectangle, {{50, 50}, {150, 120}}, 10));
        QCOMPARE(canvas.at({46, 46}), QColor(Qt::red));
        QCOMPARE(canvas.at({100, 85}), QColor(Qt::white));
        canvas.draw(mark(Tool::ellipse, {{200, 50}, {300, 120}}, 10));
        QCOMPARE(canvas.at({250, 50}), QColor(Qt::red));
        QCOMPARE(canvas.at({300, 85}), QColor(Qt::red));
        QCOMPARE(canvas.at({203, 53}), QColor(Qt::white));
    }

    void aTextStandsOnItsBaseLineOutlinedAgainstItsOwnColour()
    {
        const auto shades = [](const QColor &color) {
            Canvas canvas(2, {400, 300}, Qt::gray);
            canvas.draw(text("HIT", color));
            int darker = 0, lighter = 0;
            for (int y = 0; y < canvas.image().height(); ++y)
                for (int x = 0; x < canvas.image().width(); ++x) {
                    const int value = canvas.image().pixelColor(x, y).lightness();
                    darker += value < 60;
                    lighter += value > 200;
                }
            return std::pair(darker, lighter);
        };
        QVERIFY(shades(Qt::yellow).first > 100); // a dark outline
        QVERIFY(shades(QColor(0, 0, 80)).second > 100);
        Canvas canvas(2);
        canvas.draw(text(""));
        QCOMPARE(canvas.ink(), 0);
        canvas.draw(text("HIT"));
        QVERIFY(canvas.at({25, 101}) != QColor(Qt::white)); // the foot of the H
        QCOMPARE(canvas.at({25, 97}), QColor(Qt::white));
    }

    void aMosaicShowsTheScreensMeanInBlocks_data() { scales(); }
    void aMosaicShowsTheScreensMeanInBlocks()
    {
        QFETCH(double, scale);
        showScreen(scale);
        Canvas canvas(scale);
        canvas.draw(mark(Tool::pixelate, {{40, 60}, {80, 100}}));
        const QImage sheet = canvas.image();
        QSet<QRgb> colours;
        const QRect region((QPointF(40, 200) * scale).toPoint(), (QSizeF(40, 40) * scale).toSize());
        for (int y = region.top(); y <= region.bottom(); ++y)
            for (int x = region.left(); x <= region.right(); ++x)
                colours.insert(sheet.pixel(x, y));
        QCOMPARE(colours.size(), 16); // four blocks a side
        const int block = Pixelation::blockSide(scale);
        QCOMPARE(block, qRound(10 * scale));
        const QColor first = sheet.pixelColor(region.topLeft());
        const double mean = region.left() + (block - 1) / 2.0; // the pattern's red is the column
        QVERIFY(std::abs(first.red() - mean) <= 2);
    }

    // Of all of them, however wide it is.
    void aBlockShowsTheMeanOfItsPixels()
    {
        showScreen(1);
        QRandomGenerator random(9);
        QImage &screen = Annotation::background;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                screen.setPixel(x, y, random.generate());
        for (int width = 2; width < 2 * Pixelation::blockSide(1); ++width) {
            const QRect block(13, 21, width, 2 + width * 7 % 17);
            const auto mean = [&](int (*channel)(QRgb)) {
                int sum = 0;
                for (int y = block.top(); y <= block.bottom(); ++y)
                    for (int x = block.left(); x <= block.right(); ++x)
                        sum += channel(screen.pixel(x, y));
                return qRound(double(sum) / (block.width() * block.height()));
            };
            Canvas canvas;
            canvas.draw(mark(Tool::pixelate, {{13, 279}, {13.0 + width, 279.0 - block.height()}}));
            QCOMPARE(canvas.image().pixel(block.center()), qRgb(mean(qRed), mean(qGreen), mean(qBlue)));
        }
    }

    // Whoever hides something with a mosaic hides all of it.
    void aMosaicLeavesNoGapsBetweenItsBlocks()
    {
        showScreen(1);
        for (int side = 13; side < 300; side += 2) { // odd, so that blocks meet within a pixel
            Canvas canvas(1, {400, 300});
            const QPointF corner = side % 4 == 1 ? QPointF(0, 0) : QPointF(0.5, 0.5);
            canvas.draw(mark(Tool::pixelate, {corner, corner + QPointF(side, 300 - side)}));
            const QRect inside(2, side + 1, side - 3, 300 - side - 3);
            const QImage sheet = canvas.image().convertToFormat(QImage::Format_RGB32);
            for (int y = inside.top(); y <= inside.bottom(); ++y) {
                const auto *row = reinterpret_cast<const QRgb *>(sheet.constScanLine(y)) + inside.left();
                QCOMPARE(std::count(row, row + inside.width(), 0xffffffff), 0);
            }
        }
    }

    void aMosaicWithNothingToShowIsNothing()
    {
        showScreen(1);
        Canvas canvas;
        canvas.draw(mark(Tool::pixelate, {{40, 60}, {41.5, 100}}));
        canvas.draw(mark(Tool::pixelate, {{500, 60}, {600, 100}})); // beside the screen
        Annotation::background = {};
        canvas.draw(mark(Tool::pixelate, {{40, 60}, {80, 100}}));
        QCOMPARE(canvas.ink(), 0);
        QCOMPARE(Pixelation::blockSide(0.5), 6);
    }

    // What is repainted for a mark is all that it touches.
    void theFootprintHoldsEveryPixelOfTheMark()
    {
        QRandomGenerator random(3);
        const auto somewhere = [&] { return QPointF(random.bounded(400), random.bounded(300)); };
        showScreen(1);
        for (int round = 0; round < 80; ++round) {
            const Tool tool = allTools[size_t(round) % allTools.size()];
            Annotation any = mark(tool, {somewhere(), somewhere()}, 1 + random.bounded(30));
            while (isFreehand(tool) && any.points.size() < 60)
                any.points.append(somewhere());
            any.text = "Ágjŷ";
            Canvas canvas(1, {400, 300}, Qt::transparent);
            canvas.draw(any);
            canvas.erase(MarkFootprint::of(any, canvas.space));
            QVERIFY2(canvas.ink(Qt::transparent) == 0, qPrintable(label(tool)));
        }
    }

    void oddMarksDoNoHarm()
    {
        Canvas canvas;
        QList<QPointF> scribble;
        for (int i = 0; i < 100'000; ++i)
            scribble.append({200 + 150 * std::sin(i * 0.0171), 150 + 100 * std::cos(i * 0.0093)});
        canvas.draw(mark(Tool::marker, scribble));
        QVERIFY(canvas.ink() > 10'000);
        for (const Tool tool : allTools) {
            for (const auto &points : {QList<QPointF>{}, {{5, 5}}, {{5, 5}, {5, 5}}, {{-1e9, 7}, {1e9, 8}}}) {
                Annotation odd = mark(tool, points);
                canvas.draw(odd);
                QVERIFY(MarkFootprint::of(odd.movedBy({1, 1}), canvas.space).rectCount() < 1000);
            }
        }
        canvas.draw(text(QString(100'000, 'W')));
        canvas.draw(
            text(QString("👩‍👩‍👧 שלום مرحبا e\u0301\u0328\n\t") + QChar(0xd800)));
    }
};

QTEST_MAIN(AnnotationTest)
#include "AnnotationTest.moc"
