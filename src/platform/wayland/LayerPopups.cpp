#include "platform/wayland/LayerPopups.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace {

// The window of the layer that this window belongs to; null for any other.
QWindow *layerOf(const QWidget &window)
{
    const QWidget *parent = window.parentWidget();
    while (parent && !parent->window()->windowFlags().testFlag(Qt::BypassWindowManagerHint))
        parent = parent->window()->parentWidget();
    return parent ? parent->window()->windowHandle() : nullptr;
}

} // namespace

LayerPopups::LayerPopups() { qApp->installEventFilter(this); }

LayerPopups::~LayerPopups() { qApp->removeEventFilter(this); }

// A list closes at the announcement of Escape. The key itself then comes to the layer,
// because only that has the keyboard, and must not close anything else.
bool LayerPopups::closedPopup(const QObject &target, const QEvent &key)
{
    const bool open = QApplication::activePopupWidget() != nullptr;
    if (key.type() == QEvent::ShortcutOverride && target.isWindowType()) // it is the first to hear
        m_popupHadKey = open;
    return key.type() == QEvent::KeyPress && std::exchange(m_popupHadKey, false) && !open;
}

// The window is shown when all is known of it, but nothing of it is on the screen yet.
bool LayerPopups::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)
        return closedPopup(*watched, *event);
    auto *widget = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Show || !widget || !widget->isWindow() || !widget->windowHandle())
        return false;
    if (QWindow *layer = layerOf(*widget))
        embed(*widget, *layer);
    return false;
}

void LayerPopups::embed(QWidget &popup, QWindow &layer)
{
    const QPoint at = popup.pos() - layer.position();
    popup.windowHandle()->setParent(&layer);
    popup.windowHandle()->setPosition(at);
    layer.requestUpdate(); // where a part is counts from the next picture of the whole
}
