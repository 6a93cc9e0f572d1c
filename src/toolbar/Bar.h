#pragma once

#include "toolbar/BarLayout.h"

#include <QList>
#include <QWidget>

class BarButton;
class BarEffect;
class Raster;

// Holds buttons in a row or a column on a dark, floating panel that is just as
// large as they need. Its owner decides where it is.
class Bar final : public QWidget {
    Q_OBJECT

public:
    explicit Bar(Qt::Orientation orientation, QWidget *parent = nullptr);

    // Add something at the end; the bar owns it from then on. A view that is not a
    // button gets the size of one; a decoration covers the whole bar.
    void addButton(BarButton *button);
    void addView(QWidget *view);
    void addSeparator();
    void addDecoration(QWidget *decoration);
    [[nodiscard]] const QList<BarButton *> &buttons() const { return m_buttons; }

    // Places all that was added and sizes the bar.
    void layoutButtons();

    // Returns the opacity of the whole bar, including its shadow, from 0 to 1.
    [[nodiscard]] double alpha() const;
    void setAlpha(double alpha);

    // Returns where bar and shadow show, in device pixels of the parent at so many a point;
    // empty while there is no picture of them that lies on whole ones.
    [[nodiscard]] QRect pictured(double scale) const;
    // Blends a part of that over what has just been painted beneath, while it is at hand.
    // Several threads may call this at once.
    void blend(const Raster &raster, const QRegion &part) const;
    // Notes that so much of what is painted next has been blended already.
    void leaveOut(const QRegion &part);

protected:
    void paintEvent(QPaintEvent *event) override;
    // Swallow presses and movements beside the buttons, so that they never reach
    // the editor beneath.
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    struct Entry {
        BarLayout::Kind kind;
        QWidget *widget = nullptr; // separators are only painted
        BarButton *button = nullptr;
    };
    void add(const Entry &entry);

    const Qt::Orientation m_orientation;
    QList<Entry> m_entries;
    QList<BarButton *> m_buttons;
    QList<QRectF> m_separators;
    BarEffect *m_effect;
};
