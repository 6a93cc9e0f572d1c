#pragma once

#include <QPointer>

#include <functional>

class QMessageBox;

// The alert that says that the system does not let the program see the screens.
class PermissionAlert {
public:
    // Calls openSettings when the user wants to change that.
    explicit PermissionAlert(std::function<void()> openSettings);
    // Closes the alert.
    ~PermissionAlert();
    Q_DISABLE_COPY_MOVE(PermissionAlert)

    // Opens the alert and returns, or brings it to the front where it shows already.
    void show();

private:
    const std::function<void()> m_openSettings;
    QPointer<QMessageBox> m_box;
};
