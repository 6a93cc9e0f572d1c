#pragma once

#include <QPointer>
#include <QString>
#include <QUrl>

#include <functional>

class QDialog;

// The window that says who made the program and where it lives.
class AboutPanel {
public:
    // Calls openLink with the address of every link that is clicked.
    explicit AboutPanel(std::function<void(const QUrl &)> openLink);
    // Closes the window.
    ~AboutPanel();
    Q_DISABLE_COPY_MOVE(AboutPanel)

    // Opens the window, or brings it to the front where it shows already.
    void show();

    // Returns the credits as rich text, centred.
    [[nodiscard]] static QString credits();

private:
    const std::function<void(const QUrl &)> m_openLink;
    QPointer<QDialog> m_window;
};
