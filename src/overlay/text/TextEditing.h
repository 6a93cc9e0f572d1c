#pragma once

#include "base/ViewSpace.h"
#include "marks/EditorState.h"
#include "overlay/text/TextField.h"

#include <QPointer>

#include <functional>

// Manages the text being typed, of which there is at most one. The mark is made
// when the text is committed. Every way of leaving commits the text except undo.
class TextEditing {
public:
    TextEditing(QWidget &overlay, const ViewSpace &space, EditorState &state)
        : m_overlay(overlay)
        , m_space(space)
        , m_state(state)
    {}

    // Called when a mark has been added.
    std::function<void()> onMark;

    [[nodiscard]] bool isOpen() const { return !m_field.isNull(); }

    // Opens a field at a view point, in the state's colour and size.
    void startText(QPointF at);
    // Turns the text into a mark; an empty field is only closed.
    void commitText();
    void discard();

    // Gives the open field, if there is one, the state's current colour and size.
    void followState();

private:
    void close();

    QWidget &m_overlay;
    const ViewSpace &m_space;
    EditorState &m_state;
    QPointer<TextField> m_field;
};
