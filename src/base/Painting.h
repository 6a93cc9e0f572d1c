#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>

// Drawing in a space whose y grows upwards; all measures in points.
namespace Painting {

// Restores the painter when it goes out of scope.
class Saved {
public:
    explicit Saved(QPainter &painter) : m_painter(painter) { painter.save(); }
    ~Saved() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(Saved)

private:
    QPainter &m_painter;
};

enum class Digits { asInFont, sameWidth };

// A piece of text on one line.
struct Label {
    QString text;
    QFont font;
    QColor color = Qt::white;
    // Same width keeps a changing number from trembling.
    Digits digits = Digits::asInFont;
    // How many times larger the font is than the text, for sizes that are not
    // whole: Qt rounds the size of a font to pixels before it draws.
    double enlarged = 1;
};

[[nodiscard]] QSizeF sizeOf(const Label &label);
// Upright, with the lower left corner of its line box at the given point.
void drawText(QPainter &painter, QPointF lowerLeft, const Label &label);
// The same in a widget's own space, whose y grows downwards.
void drawTextDownwards(QPainter &painter, QPointF upperLeft, const Label &label);

// A rounded rectangle, with a border of one point inside its edge when the
// border's colour is valid.
void drawPanel(QPainter &painter, const QRectF &rect, double radius, const QColor &fill,
               const QColor &border = {});
// A panel with fully rounded ends.
void drawPill(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &border);

} // namespace Painting
