#pragma once

#include <QObject>

class QWidget;
class QWindow;

// Makes menus, lists and dialogs that belong to a layer a part of its surface. Left to
// Qt they would be pop-ups of a window that is none: the compositor closes them at once,
// or puts them below the layer.
class LayerPopups final : public QObject {
public:
    // Watches the whole program for as long as it lives.
    LayerPopups();
    ~LayerPopups() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void embed(QWidget &popup, QWindow &layer);
    [[nodiscard]] bool closedPopup(const QObject &target, const QEvent &key);

    bool m_popupHadKey = false; // when it was last said that a key is about to come
};
