#pragma once

#include "base/ViewSpace.h"
#include "marks/Annotation.h"

#include <QLineEdit>

#include <functional>

// Edits a text mark in place. Editing, selecting and input methods are Qt's; the
// mark itself paints the text, so that nothing jumps when the text is committed.
class TextField final : public QLineEdit {
    Q_OBJECT

public:
    // Opens the field at a view point, on top of the overlay.
    TextField(QWidget &overlay, const ViewSpace &space, QPointF at, const Annotation &look);

    // Called on Return and Escape, when the text is complete.
    std::function<void()> onDone;

    [[nodiscard]] const Annotation &look() const { return m_look; }
    // Returns the look with the current text, without what an input method is still
    // composing.
    [[nodiscard]] Annotation mark() const;

    void setTextColor(const QColor &color);
    void setTextSize(double size); // points

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool focusNextPrevChild(bool next) override;

private:
    void fit();
    [[nodiscard]] QString shownText() const;
    // Returns how far from the text's origin the caret or a character stands, in
    // points.
    [[nodiscard]] double offsetOf(int position) const;
    [[nodiscard]] QRectF caret() const;
    void drawCaretAndSelection(QPainter &painter) const;

    const ViewSpace m_space;
    const QPointF m_at;
    Annotation m_look;
    QString m_composing; // the input method's unfinished text, shown at the cursor
    int m_composingCursor = 0;
};
