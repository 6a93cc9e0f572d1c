#pragma once

#include <QWidget>

class QLabel;

// Shows that a version is being downloaded, and how much of it has arrived. The
// window has no buttons, takes no focus, and cannot be closed by the user: the
// update goes on without it.
class ProgressWindow final : public QWidget {
public:
    explicit ProgressWindow(const QString &version);

    // Shows the window in the middle of the screen, above other windows.
    void present();

    // Shows how much has arrived, in any unit, unless the whole is unknown.
    void setProgress(qint64 part, qint64 whole);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    const QString m_text;
    QLabel *m_label;
};
