#include "overlay/canvas/Notice.h"

#include "base/Rect.h"
#include "base/ViewSpace.h"

#include <QPainter>

Notice::Notice(QWidget &overlay, const ViewSpace &space) : QWidget(&overlay), m_space(space)
{
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_end.setSingleShot(true);
    m_end.setTimerType(Qt::PreciseTimer);
    m_end.callOnTimeout(this, &QWidget::hide);
}

void Notice::present(const QRectF &area, std::chrono::milliseconds lasts, Draw draw)
{
    replace(area, std::move(draw));
    m_end.start(lasts);
    raise(); // the latest word is the one to be read
    show();
}

void Notice::replace(const QRectF &area, Draw draw)
{
    constexpr double softEdge = 1; // points
    m_draw = std::move(draw);
    setGeometry(m_space.around(area, softEdge));
    update();
}

void Notice::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.translate(-pos());
    painter.setTransform(m_space.upwards(), true);
    m_draw(painter);
}
