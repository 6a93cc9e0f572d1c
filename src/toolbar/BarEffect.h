#pragma once

#include <QGraphicsEffect>
#include <QImage>
#include <QRegion>

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

    // Returns where the picture lies, in device pixels of the bar's parent at so many a
    // point; empty while none is kept, or when it would not lie on whole ones.
    [[nodiscard]] QRect pictured(QPoint bar, double scale) const;
    // Blends a part of the picture over what is there, both in those pixels. Several
    // threads may call this at once.
    void blend(const Raster &raster, const QRegion &part, QPoint bar) const;
    // Leaves that part out when the bar is painted the next time.
    void leaveOut(const QRegion &part, QPoint bar);

    [[nodiscard]] QRectF boundingRectFor(const QRectF &bar) const override;

protected:
    void draw(QPainter *painter) override;

private:
    [[nodiscard]] const QImage &shadow(QSizeF bar, double scale);
    [[nodiscard]] QImage whole(QSizeF bar, double scale);
    void blendRows(const Raster &raster, const QRect &part, QPoint corner) const;
    [[nodiscard]] QPoint cornerOf(QPoint bar) const;

    double m_alpha = 1;
    bool m_keeps = true;
    QImage m_whole;  // null when it has to be made anew
    QImage m_shadow; // for the last size and scale
    QSizeF m_shadowOf;
    QRegion m_leftOut; // of the next painting, in pixels of the picture
};
