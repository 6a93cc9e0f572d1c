#pragma once

#include <QPushButton>

// Looks like a link on a page. Return activates it as Space does.
class LinkButton final : public QPushButton {
    Q_OBJECT

public:
    LinkButton(const QString &text, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};
