#pragma once

#include <QBasicTimer>
#include <QWidget>

// Shows twelve spokes, of which each in turn is the darkest, while it is visible.
class Spinner final : public QWidget {
public:
    explicit Spinner(QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QBasicTimer m_timer;
    int m_step = 0;
};
