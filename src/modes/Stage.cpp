#include "modes/Stage.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

constexpr qint64 patience = 5000; // milliseconds
constexpr int step = 5;

} // namespace

Stage::Stage(const QImage &picture, double scale)
    : m_view({nullptr, picture, scale, QSizeF(picture.size()) / scale}, m_session, m_desktop)
{
    m_view.show();
    m_view.activateWindow();
    QCoreApplication::processEvents();
}

QPointF Stage::at(double x, double y) const
{
    return QPointF(QPoint(qRound(x * m_view.width()), qRound(y * m_view.height())));
}

bool Stage::wait(const std::function<bool()> &condition)
{
    QElapsedTimer since;
    since.start();
    while (!condition()) {
        if (since.elapsed() > patience || !linger(step))
            return false;
    }
    return true;
}

bool Stage::linger(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    return loop.exec() == 0;
}

QImage Stage::picture()
{
    (void)wait([this] { return m_view.halo().resting(); });
    m_view.update();
    return pictureNow();
}

QImage Stage::pictureNow()
{
    QCoreApplication::processEvents();
    return pixelsOf(m_view);
}

// The window's own: the toolkit's way of painting a window into a picture leaves
// out what has a shadow.
QImage Stage::pixelsOf(QWidget &window)
{
    const auto *pixels = dynamic_cast<QImage *>(window.backingStore()->paintDevice());
    return pixels ? pixels->copy() : QImage();
}
