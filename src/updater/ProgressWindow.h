#pragma once

#include <QWidget>

// Says that a version is being downloaded. It has no buttons and takes no
// focus.
class ProgressWindow final : public QWidget {
public:
    explicit ProgressWindow(const QString &version);

    // In the middle of the screen, above other windows.
    void present();
};
