#pragma once

#include "access/Announcer.h"

#include <QFileDialog>

#include <functional>

class QDialogButtonBox;
class QLabel;

// Shows the save panel as a part of the overlay: a window of its own could open
// behind the overlays, where nobody can reach it. For the same reason the panel
// itself asks whether to replace a file.
class SavePanel final : public QFileDialog {
    Q_OBJECT

public:
    SavePanel(QWidget &overlay, const QString &folder, const QString &name);

    // Called with the path that the user has settled on; not called when the user
    // cancels.
    std::function<void(const QString &path)> onChosen;

    // Shows the panel in the middle of the overlay, with the keyboard focus in the
    // name.
    void open() override;
    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void ask(const QString &question, const QString &path);
    void withdrawQuestion();
    void choose(const QString &path);

    QLabel *m_question;
    QDialogButtonBox *m_answers;
    Announcer m_announcer{*this};
    QString m_asked; // the path that the question is about
};
