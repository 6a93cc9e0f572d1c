#include "overlay/text/TextEditing.h"

#include "marks/TextShape.h"

#include <QGuiApplication>
#include <QInputMethod>

void TextEditing::startText(QPointF at)
{
    Annotation look(Tool::text, m_state.color, m_state.lineWidth, {});
    look.fontSize = TextShape::sizeFor(m_state.lineWidth);
    m_field = new TextField(m_overlay, m_space, at, look);
    m_field->onDone = [this] { commitText(); };
    m_field->show();
    m_field->setFocus();
}

void TextEditing::commitText()
{
    if (!m_field)
        return;
    // What an input method is still composing was typed too.
    if (m_field->hasFocus())
        QGuiApplication::inputMethod()->commit();
    Annotation mark = m_field->mark();
    mark.width = m_state.lineWidth;
    close();
    if (mark.text.isEmpty())
        return;
    m_state.annotations.push_back(std::make_shared<Annotation>(std::move(mark)));
    onMark();
}

void TextEditing::discard()
{
    if (m_field)
        close();
}

void TextEditing::followState()
{
    if (!m_field)
        return;
    m_field->setTextColor(m_state.color);
    m_field->setTextSize(TextShape::sizeFor(m_state.lineWidth));
}

// The field may be in the middle of its own key event.
void TextEditing::close()
{
    m_field->hide();
    m_field->deleteLater();
    m_field.clear();
    m_overlay.setFocus();
}
