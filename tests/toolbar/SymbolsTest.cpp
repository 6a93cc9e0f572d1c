#include "toolbar/Symbols.h"

#include <QDir>
#include <QTest>

using Symbols::Symbol;

class SymbolsTest : public QObject {
    Q_OBJECT

    static int ink(const QImage &image)
    {
        int sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                sum += image.pixelColor(x, y).alpha();
        return sum;
    }

private slots:
    void everyGlyphHasInkAndKeepsClearOfItsBorder()
    {
        const QStringList files = QDir(":/vellumora/symbols").entryList();
        QCOMPARE(files.size(), 16);
        for (const QString &file : files) {
            const QString name = file.chopped(4);
            const QImage image = Symbols::picture({name, 15, Qt::white}, 2);
            QCOMPARE(image.size(), QSize(36, 36));
            QVERIFY2(ink(image) > 0, qPrintable(name));
            for (int i = 0; i < 36; ++i) {
                const bool clear = image.pixelColor(i, 0).alpha() + image.pixelColor(i, 35).alpha()
                                       + image.pixelColor(0, i).alpha() + image.pixelColor(35, i).alpha()
                                   == 0;
                QVERIFY2(clear, qPrintable(name));
            }
        }
    }

    void straightLinesFallOnPixels()
    {
        const QImage image = Symbols::picture({u"rectangle", 15, Qt::white}, 1);
        QCOMPARE(image.pixelColor(1, 9).alpha(), 255); // the left side, with a shade on both sides
        QVERIFY(image.pixelColor(0, 9).alpha() < 70);
        QVERIFY(image.pixelColor(2, 9).alpha() < 70);
        QCOMPARE(image.pixelColor(9, 9).alpha(), 0);
    }

    void theTintIsTheOnlyColour()
    {
        const QImage image = Symbols::picture({u"circle.fill", 15, Qt::red}, 2);
        QCOMPARE(image.pixelColor(18, 18), QColor(Qt::red));
        QCOMPARE(Symbols::picture({u"circle.fill", 15, Qt::blue}, 2).pixelColor(18, 18), QColor(Qt::blue));
    }

    void semiboldIsHeavier()
    {
        QVERIFY(ink(Symbols::picture({u"eyedropper", 11, Qt::white, Symbols::Weight::semibold}, 2))
                > ink(Symbols::picture({u"eyedropper", 11, Qt::white}, 2)));
    }

    void aPictureIsRenderedOnce()
    {
        const Symbol symbol{u"xmark", 15, Qt::white};
        QCOMPARE(Symbols::picture(symbol, 1).cacheKey(), Symbols::picture(symbol, 1).cacheKey());
        QVERIFY(Symbols::picture(symbol, 1).cacheKey() != Symbols::picture(symbol, 2).cacheKey());
    }

    void anUnknownNameHasNoInk() { QCOMPARE(ink(Symbols::picture({u"no.such", 15, Qt::white}, 1)), 0); }
};

QTEST_MAIN(SymbolsTest)
#include "SymbolsTest.moc"
