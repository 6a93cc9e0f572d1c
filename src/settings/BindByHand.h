#pragma once

#include <QString>
#include <QWidget>

#include <functional>

class QLineEdit;

// Shows the command for a capture, for desktops where the user binds it to keys.
class BindByHand final : public QWidget {
    Q_OBJECT

public:
    explicit BindByHand(QWidget *parent);

    // Called with the command when the user wants it on the clipboard.
    std::function<void(const QString &)> onCopy;

    // Returns the command with which a shell starts a capture by this very program.
    [[nodiscard]] static QString command();

private:
    QLineEdit *m_command;
};
