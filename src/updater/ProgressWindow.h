#pragma once

#include <QWidget>

class QLabel;

// Says that a version is being downloaded, and how much of it has come. It has
// no buttons, takes no focus, and cannot be closed by the user: the update goes
// on without it.
class ProgressWindow final : public QWidget {
public:
    explicit ProgressWindow(const QString &version);

    // In the middle of the screen, above other windows.
    void present();

    // Any unit; nothing is shown when the whole is not known.
    void setProgress(qint64 part, qint64 whole);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    const QString m_text;
    QLabel *m_label;
};
