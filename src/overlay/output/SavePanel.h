#pragma once

#include <QFileDialog>

#include <functional>

class QDialogButtonBox;
class QLabel;

// The save panel, a part of the overlay itself: a window of its own could come
// up behind the overlays, where nobody can reach it. For the same reason it
// asks about replacing a file inside the panel.
class SavePanel final : public QFileDialog {
    Q_OBJECT

public:
    SavePanel(QWidget &overlay, const QString &folder, const QString &name);

    // Called with the path that the user settled on; cancelling calls nothing.
    std::function<void(const QString &path)> onChosen;

    // In the middle of the overlay, with the keyboard in the name.
    void open() override;
    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void ask(const QString &question, const QString &path);
    void withdrawQuestion();
    void choose(const QString &path);

    QLabel *m_question;
    QDialogButtonBox *m_answers;
    QString m_asked; // the path that is in question
};
