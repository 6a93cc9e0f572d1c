#include "pictures/ImageFiles.h"

#include <QBuffer>
#include <QColorSpace>
#include <QRandomGenerator>
#include <QTemporaryFile>
#include <QTest>
#include <QtEndian>

#include <tiffio.h>

#include <cmath>
#include <memory>

namespace {

// Reproducible, and nothing in it repeats.
QImage random(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator generator(7);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, generator.generate() | 0xff000000U);
    return image;
}

// Like a photograph: soft steps, different in every channel, and some grain.
QImage soft(QSize size)
{
    QImage image = random(size);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const int grain = qBlue(image.pixel(x, y)) & 3;
            const auto wave
                = [&](double phase) { return int(120 + 90 * std::sin(x / 70.0 + y / 90.0 + phase)); };
            image.setPixel(x, y, qRgb(wave(0) + grain, wave(1), wave(2) - grain));
        }
    return image;
}

// Like a page of text: few shapes, hard edges, in no order.
QImage lettered(QSize size)
{
    const QImage letters = random({12 * 20, 16});
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const int letter = (x / 12 * 7 + y / 16 * 5 + x * y / 4000) % 20;
            const bool inked = letters.pixel(letter * 12 + x % 12, y % 16) & 64;
            image.setPixel(x, y, inked ? qRgb(20, 30, 40) : qRgb(250, 250, 250));
        }
    return image;
}

// The data of a PNG's first chunk of that name.
QByteArray chunk(const QByteArray &png, QByteArrayView name)
{
    const qsizetype at = png.indexOf(name);
    return at < 4 ? QByteArray() : png.mid(at + 4, qFromBigEndian<quint32>(png.constData() + at - 4));
}

struct OpenTiff {
    explicit OpenTiff(const QByteArray &bytes)
    {
        if (file.open() && file.write(bytes) == bytes.size() && file.flush())
            tiff.reset(TIFFOpen(qPrintable(file.fileName()), "r"));
    }

    QTemporaryFile file;
    std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff{nullptr, TIFFClose};
};

QImage pixelsOf(TIFF *tiff)
{
    quint32 width = 0, height = 0;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    QImage image(int(width), int(height), QImage::Format_RGBA8888);
    auto *const raster = reinterpret_cast<uint32_t *>(image.bits());
    if (!TIFFReadRGBAImageOriented(tiff, width, height, raster, ORIENTATION_TOPLEFT, 1))
        return {};
    return image.convertToFormat(QImage::Format_RGB32);
}

} // namespace

class ImageFilesTest : public QObject {
    Q_OBJECT

private slots:
    void everyPixelComesBack_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::newRow("one pixel") << random({1, 1});
        QTest::newRow("one column") << random({1, 5000});
        QTest::newRow("one row") << random({5000, 1});
        QTest::newRow("odd and wide") << random({3841, 7});
        QTest::newRow("several bands that cannot shrink") << random({3001, 211});
        QTest::newRow("several photographed bands") << soft({2003, 411});
        QTest::newRow("several drawn bands") << lettered({2001, 511});
        QTest::newRow("another format") << soft({301, 99}).convertToFormat(QImage::Format_RGB888);
        QTest::newRow("as overlays keep it")
            << soft({301, 99}).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    void everyPixelComesBack()
    {
        QFETCH(QImage, picture);
        const QImage expected = picture.convertToFormat(QImage::Format_RGB32);
        const auto files = ImageFiles::both(picture, 1);
        QVERIFY(files);
        QImage fromPng = QImage::fromData(files->png, "PNG");
        QVERIFY(!fromPng.hasAlphaChannel());
        fromPng.setColorSpace({}); // compared too, otherwise
        QCOMPARE(fromPng.convertToFormat(QImage::Format_RGB32), expected);
        const OpenTiff opened(files->tiff);
        QVERIFY(opened.tiff);
        QCOMPARE(pixelsOf(opened.tiff.get()), expected);
    }

    void bothAreWhatEachIsAlone()
    {
        const QImage picture = soft({1200, 700});
        const auto files = ImageFiles::both(picture, 2);
        QCOMPARE(files->png, *ImageFiles::png(picture, 2));
        QCOMPARE(files->tiff, *ImageFiles::tiff(picture, 2));
    }

    void theDensityFollowsTheScale()
    {
        for (const auto &[scale, perMetre] :
             {std::pair(1.0, 2835U), std::pair(1.25, 3543U), std::pair(2.0, 5669U)}) {
            const auto files = ImageFiles::both(lettered({20, 20}), scale);
            const QByteArray density = chunk(files->png, "pHYs");
            QCOMPARE(density.size(), 9);
            QCOMPARE(qFromBigEndian<quint32>(density.constData()), perMetre);
            QCOMPARE(qFromBigEndian<quint32>(density.constData() + 4), perMetre);
            QCOMPARE(density.back(), '\1'); // metres
            const OpenTiff opened(files->tiff);
            float across = 0, down = 0;
            quint16 unit = 0;
            QVERIFY(TIFFGetField(opened.tiff.get(), TIFFTAG_XRESOLUTION, &across));
            QVERIFY(TIFFGetField(opened.tiff.get(), TIFFTAG_YRESOLUTION, &down));
            QVERIFY(TIFFGetField(opened.tiff.get(), TIFFTAG_RESOLUTIONUNIT, &unit));
            QCOMPARE(across, float(72 * scale));
            QCOMPARE(down, across);
            QCOMPARE(unit, quint16(RESUNIT_INCH));
        }
    }

    void coloursAreMarkedAsSRgb()
    {
        const auto png = ImageFiles::png(lettered({20, 20}), 1);
        QCOMPARE(chunk(*png, "sRGB"), QByteArray(1, '\0'));
        QCOMPARE(QImage::fromData(*png).colorSpace(), QColorSpace(QColorSpace::SRgb));
    }

    // Decoders of pictures often forgive a wrong checksum; zlib does not.
    void thePixelsAreOneWholeStream()
    {
        const QSize size{1500, 700};
        const auto png = ImageFiles::png(soft(size), 1);
        const quint32 rawBytes = quint32((3 * size.width() + 1) * size.height());
        QByteArray stream(4, '\0');
        qToBigEndian(rawBytes, stream.data());
        for (qsizetype at = 8; at < png->size();) {
            const qsizetype length = qFromBigEndian<quint32>(png->constData() + at);
            if (png->mid(at + 4, 4) == "IDAT")
                stream += png->mid(at + 8, length);
            at += length + 12;
        }
        QCOMPARE(qUncompress(stream).size(), qsizetype(rawBytes));
    }

    void drawnAndPhotographedBothShrink()
    {
        for (const QImage &picture : {lettered({1600, 900}), soft({1600, 900})}) {
            QByteArray usual;
            QBuffer buffer(&usual);
            QVERIFY(picture.save(&buffer, "PNG"));
            const qsizetype size = ImageFiles::png(picture, 1)->size();
            QVERIFY2(size <= usual.size() * 11 / 10,
                     qPrintable(QString("%1 of %2").arg(size).arg(usual.size())));
        }
    }

    void nothingComesFromNothing()
    {
        QVERIFY(!ImageFiles::png({}, 1));
        QVERIFY(!ImageFiles::tiff({}, 1));
        QVERIFY(!ImageFiles::both({}, 1));
    }
};

QTEST_GUILESS_MAIN(ImageFilesTest)
#include "ImageFilesTest.moc"
