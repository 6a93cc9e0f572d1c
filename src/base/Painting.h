#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QSizeF>
#include <QString>

// Draws text and panels in a space whose y grows upwards. All measures are in
// points.
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

// Describes a piece of text on one line.
struct Label {
    QString text;
    QFont font;
    QColor color = Qt::white;
    // Digits of the same width keep a changing number from trembling.
    Digits digits = Digits::asInFont;
    // The font is this many times larger than the text. Qt rounds the size of a
    // font to whole pixels before it draws; drawing a large font scaled down gives
    // sizes in between.
    double enlarged = 1;
};

// Returns a pen with round ends for lines of a mark, whose width is in points.
[[nodiscard]] QPen roundPen(const QColor &color, double width, Qt::PenJoinStyle join);

[[nodiscard]] QSizeF sizeOf(const Label &label);
// Draws the text upright, with the lower left corner of its line box at the given
// point.
void drawText(QPainter &painter, QPointF lowerLeft, const Label &label);
// Draws the text in a widget's own space, whose y grows downwards.
void drawTextDownwards(QPainter &painter, QPointF upperLeft, const Label &label);

// Draws a rounded rectangle, with a border of one point inside its edge if the
// border's colour is valid.
void drawPanel(QPainter &painter, const QRectF &rect, double radius, const QColor &fill,
               const QColor &border = {});
// Draws a panel with fully rounded ends.
void drawPill(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &border);

} // namespace Painting
