#pragma once

#include <QGraphicsEffect>
#include <QImage>

// The soft shadow of a bar, which reaches beyond the widget, and the fading of
// the bar as a whole, so that its buttons do not shine through each other.
class BarEffect final : public QGraphicsEffect {
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    [[nodiscard]] double alpha() const { return m_alpha; }
    void setAlpha(double alpha);

    [[nodiscard]] QRectF boundingRectFor(const QRectF &bar) const override;

protected:
    void draw(QPainter *painter) override;

private:
    [[nodiscard]] const QImage &shadow(QSizeF bar, double scale);

    double m_alpha = 1;
    QImage m_shadow; // of the last size and scale
    QSizeF m_shadowOf;
};
