#pragma once

#include <QGraphicsEffect>
#include <QImage>

class Raster;

// Draws the soft shadow of a bar, which reaches beyond the widget, and fades the
// bar as a whole, so that its buttons do not shine through each other. Bar and
// shadow are kept as one picture, because the glow beneath them is repainted thirty
// times a second.
class BarEffect final : public QGraphicsEffect {
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    [[nodiscard]] double alpha() const { return m_alpha; }
    void setAlpha(double alpha);

    // Discards the picture, because the bar looks different now.
    void forget() { m_whole = {}; }
    // Makes the picture anew on every paint, because the bar may look different
    // each time.
    void keepNothing() { m_keeps = false; }

    [[nodiscard]] QRectF boundingRectFor(const QRectF &bar) const override;

protected:
    void draw(QPainter *painter) override;

private:
    [[nodiscard]] const QImage &shadow(QSizeF bar, double scale);
    [[nodiscard]] QImage whole(QSizeF bar, double scale);
    void blendOn(const Raster &raster, const QRect &rect) const;

    double m_alpha = 1;
    bool m_keeps = true;
    QImage m_whole;  // null when it has to be made anew
    QImage m_shadow; // for the last size and scale
    QSizeF m_shadowOf;
};
