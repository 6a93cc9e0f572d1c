#include "pictures/ScreenPictures.h"

#include <QBuffer>
#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

constexpr QSize screen{3840, 2160};
constexpr quint32 seed = 20260;

constexpr std::array words{"window",  "the",    "settings", "of",      "return", "picture", "value",
                           "update",  "folder", "const",    "message", "and",    "2,048",   "screen",
                           "project", "with",   "(left)",   "report",  "a",      "keyboard"};
constexpr std::array ink{0xff569cd6U, 0xffd4d4d4U, 0xffce9178U, 0xffb5cea8U, 0xffc586c0U, 0xff9cdcfeU};

QString sentence(QRandomGenerator &random, int count)
{
    QStringList chosen;
    for (int i = 0; i < count; ++i)
        chosen << QString::fromLatin1(words[random.bounded(quint32(words.size()))]);
    return chosen.join(u' ');
}

QFont font(const QString &family, int pixels)
{
    QFont chosen(family);
    chosen.setPixelSize(pixels);
    return chosen;
}

void drawWindow(QPainter &painter, const QRect &frame, int pixels, QRandomGenerator &random)
{
    painter.fillRect(frame.adjusted(-6, -2, 6, 12), QColor(0, 0, 0, 60));
    painter.fillRect(frame, QColor(250, 250, 250));
    QLinearGradient title(frame.topLeft(), frame.topLeft() + QPoint(0, 56));
    title.setColorAt(0, QColor(232, 232, 234));
    title.setColorAt(1, QColor(212, 212, 216));
    painter.fillRect(QRect(frame.topLeft(), QSize(frame.width(), 56)), title);
    for (int i = 0; i < 3; ++i) {
        painter.setBrush(QColor::fromHsv(i * 55, 180, 240));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(frame.topLeft() + QPoint(32 + i * 40, 28), 12, 12);
    }
    painter.setClipRect(frame.adjusted(24, 60, -24, -12));
    painter.setFont(font("DejaVu Sans", pixels));
    painter.setPen(QColor(40, 40, 44));
    for (int y = frame.top() + 72 + pixels; y < frame.bottom(); y += pixels * 3 / 2)
        if (random.bounded(6) > 0)
            painter.drawText(frame.left() + 32, y, sentence(random, 4 + int(random.bounded(40))));
    painter.setClipping(false);
}

void drawWallpaper(QPainter &painter)
{
    QLinearGradient sky(0, 0, screen.width(), screen.height());
    sky.setColorAt(0, QColor(24, 60, 120));
    sky.setColorAt(0.6, QColor(90, 110, 180));
    sky.setColorAt(1, QColor(220, 140, 120));
    painter.fillRect(QRect({}, screen), sky);
    painter.setBrush(QColor(255, 255, 255, 24));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(2900, 600), 900, 700);
}

// Smooth value noise with one knot every `cell` pixels, from -1 to 1.
class Octave {
public:
    Octave(QSize size, int cell, QRandomGenerator &random) : m_cell(cell), m_across(size.width() / cell + 2)
    {
        m_knots.resize(size_t(m_across) * size_t(size.height() / cell + 2));
        for (double &knot : m_knots)
            knot = random.generateDouble() * 2 - 1;
    }

    [[nodiscard]] double at(int x, int y) const
    {
        const double across = eased(x % m_cell), down = eased(y % m_cell);
        const auto corner = m_knots.cbegin() + x / m_cell + ptrdiff_t(y / m_cell) * m_across;
        return std::lerp(std::lerp(corner[0], corner[1], across),
                         std::lerp(corner[m_across], corner[m_across + 1], across), down);
    }

private:
    [[nodiscard]] double eased(int step) const
    {
        const double t = double(step) / m_cell;
        return t * t * (3 - 2 * t);
    }

    int m_cell;
    int m_across;
    std::vector<double> m_knots;
};

// Octaves from large clouds down to fine structure, about -1 to 1.
class Clouds {
public:
    Clouds(QSize size, int smallest, QRandomGenerator &random)
    {
        for (int cell = 512; cell >= smallest; cell /= 2)
            m_octaves.emplace_back(size, cell, random);
    }

    [[nodiscard]] double at(int x, int y) const
    {
        double sum = 0, weight = 0.6;
        for (const Octave &octave : m_octaves) {
            sum += octave.at(x, y) * weight;
            weight *= 0.55;
        }
        return sum;
    }

private:
    std::vector<Octave> m_octaves;
};

void paintPhotograph(QImage &onto, const QRect &place)
{
    QRandomGenerator random(seed);
    const Clouds light(place.size(), 2, random), warmth(place.size(), 16, random),
        haze(place.size(), 16, random);
    // The grain of a sensor differs in every channel.
    const auto channel = [&random](double value) {
        return std::clamp(int(value * 255 + random.generateDouble() * 3), 0, 255);
    };
    for (int y = 0; y < place.height(); ++y)
        for (int x = 0; x < place.width(); ++x) {
            const double l = 0.4 + 0.2 * y / place.height() + 0.4 * light.at(x, y);
            const double w = 0.15 * warmth.at(x, y), h = 0.2 * haze.at(x, y);
            onto.setPixel(place.topLeft() + QPoint(x, y),
                          qRgb(channel(l + w), channel(l + h / 2), channel(l - w + h)));
        }
}

} // namespace

namespace ScreenPictures {

QImage desktop()
{
    QRandomGenerator random(seed);
    QImage image(screen, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawWallpaper(painter);
    drawWindow(painter, {120, 140, 1500, 1300}, 22, random);
    drawWindow(painter, {900, 420, 1700, 1500}, 28, random);
    drawWindow(painter, {2200, 160, 1500, 900}, 18, random);
    drawWindow(painter, {2500, 1180, 1200, 800}, 34, random);
    painter.fillRect(0, 0, screen.width(), 56, QColor(30, 30, 34));
    painter.setFont(font("DejaVu Sans", 26));
    painter.setPen(Qt::white);
    painter.drawText(40, 38, sentence(random, 12));
    return image;
}

QImage editor()
{
    QRandomGenerator random(seed);
    QImage image(screen, QImage::Format_RGB32);
    image.fill(QColor(30, 30, 30));
    QPainter painter(&image);
    painter.setFont(font("DejaVu Sans Mono", 26));
    for (int line = 1, y = 40; y < screen.height(); ++line, y += 38) {
        painter.setPen(QColor(110, 110, 110));
        painter.drawText(QRect(0, y - 30, 90, 38), Qt::AlignRight, QString::number(line));
        int x = 130 + int(random.bounded(5)) * 64;
        for (int word = int(random.bounded(28)); word > 0; --word) {
            const QString text = sentence(random, 1);
            painter.setPen(QColor(ink[random.bounded(quint32(ink.size()))]));
            painter.drawText(x, y, text);
            x += painter.fontMetrics().horizontalAdvance(text + u' ');
        }
    }
    return image;
}

QImage photo()
{
    QImage image = desktop();
    paintPhotograph(image, {0, 56, screen.width() / 2, screen.height() - 56});
    return image;
}

QImage wallpaper()
{
    QImage photograph(screen / 2, QImage::Format_RGB32);
    paintPhotograph(photograph, photograph.rect());
    QByteArray file;
    QBuffer buffer(&file);
    photograph.save(&buffer, "JPG", 85);
    QImage image = QImage::fromData(file).scaled(screen, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.convertTo(QImage::Format_RGB32);
    QPainter painter(&image);
    QRandomGenerator random(seed);
    drawWindow(painter, {2000, 300, 1500, 1300}, 24, random);
    return image;
}

QImage noise()
{
    QImage image(screen, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x)
            image.setPixel(x, y, random.generate() | 0xff000000U);
    return image;
}

} // namespace ScreenPictures
