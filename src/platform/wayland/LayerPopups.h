#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QWindow;

// Makes menus, lists and dialogs that belong to a layer a part of its surface. Left to
// Qt they would be pop-ups of a window that is none: the compositor closes them at once,
// or puts them below the layer. As the layer has the keyboard, it is shared out here.
class LayerPopups final : public QObject {
public:
    // Watches the whole program for as long as it lives.
    LayerPopups();
    ~LayerPopups() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void embed(QWidget &window, QWindow &layer);
    [[nodiscard]] bool closedPopup(const QObject &target, const QEvent &key);
    [[nodiscard]] bool answeredByDialog(QObject &target, QEvent &event);

    QPointer<QWidget> m_dialog; // the last that has opened
    bool m_popupHadKey = false; // when it was last said that a key is about to come
};
