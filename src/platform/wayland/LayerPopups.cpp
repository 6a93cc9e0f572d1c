#include "platform/wayland/LayerPopups.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

#include <utility>

namespace {

bool isLayer(const QWidget &window) { return window.windowFlags().testFlag(Qt::BypassWindowManagerHint); }

// The window of the layer that this window belongs to; null for any other.
QWindow *layerOf(const QWidget &window)
{
    const QWidget *parent = window.parentWidget();
    while (parent && !isLayer(*parent->window()))
        parent = parent->window()->parentWidget();
    return parent ? parent->window()->windowHandle() : nullptr;
}

bool isKey(const QEvent &event)
{
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease
           || event.type() == QEvent::ShortcutOverride;
}

bool isPointing(const QEvent &event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonRelease
           || event.type() == QEvent::MouseButtonDblClick || event.type() == QEvent::MouseMove
           || event.type() == QEvent::Wheel || event.type() == QEvent::ContextMenu;
}

} // namespace

LayerPopups::LayerPopups() { qApp->installEventFilter(this); }

LayerPopups::~LayerPopups() { qApp->removeEventFilter(this); }

// A window is shown when all is known of it, but nothing of it is on the screen yet.
bool LayerPopups::eventFilter(QObject *watched, QEvent *event)
{
    if (closedPopup(*watched, *event) || answeredByDialog(*watched, *event))
        return true;
    auto *widget = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Show || !widget || !widget->isWindow() || !widget->windowHandle())
        return false;
    if (QWindow *layer = layerOf(*widget))
        embed(*widget, *layer);
    return false;
}

// The places of parts count from the whole.
void LayerPopups::embed(QWidget &window, QWindow &layer)
{
    QPoint at = window.pos() - layer.position();
    if (window.windowType() == Qt::Dialog) {
        at = QRect({}, layer.size()).center() - window.rect().center();
        // Qt would keep the keys from the layer, which is the only one to get any.
        window.windowHandle()->setModality(Qt::NonModal);
        m_dialog = &window;
    }
    window.windowHandle()->setParent(&layer);
    window.move(at);
    layer.requestUpdate(); // it shows with the next picture of the whole
}

// A list closes at the announcement of Escape. The key itself then comes to the layer and
// must not close anything else.
bool LayerPopups::closedPopup(const QObject &target, const QEvent &key)
{
    const bool open = QApplication::activePopupWidget() != nullptr;
    if (key.type() == QEvent::ShortcutOverride && target.isWindowType()) // it is the first to hear
        m_popupHadKey = open;
    return key.type() == QEvent::KeyPress && std::exchange(m_popupHadKey, false) && !open;
}

// While a dialog waits for its answer, it gets the keys, and what lies below it nothing.
bool LayerPopups::answeredByDialog(QObject &target, QEvent &event)
{
    const auto *widget = qobject_cast<QWidget *>(&target);
    if (!m_dialog || !m_dialog->isVisible() || !widget || !isLayer(*widget->window()))
        return false;
    if (isKey(event)) {
        QWidget *focus = m_dialog->focusWidget();
        QCoreApplication::sendEvent(focus ? focus : m_dialog.data(), &event);
    }
    return isKey(event) || isPointing(event);
}
