#pragma once

#include "base/ViewSpace.h"
#include "marks/EditorState.h"
#include "overlay/text/TextField.h"

#include <QPointer>

#include <functional>

// The text being typed. At most one at a time; the mark comes about when it is
// committed, and every way of leaving commits it but undo.
class TextEditing {
public:
    TextEditing(QWidget &overlay, const ViewSpace &space, EditorState &state)
        : m_overlay(overlay)
        , m_space(space)
        , m_state(state)
    {}

    // There is a mark more.
    std::function<void()> onMark;

    [[nodiscard]] bool isOpen() const { return !m_field.isNull(); }

    // Opens a field at a view point, in the colour and size of the state.
    void startText(QPointF at);
    // An empty field only goes.
    void commitText();
    void discard();

    // Of the open field, if there is one, as the state has them now.
    void followState();

private:
    void close();

    QWidget &m_overlay;
    const ViewSpace &m_space;
    EditorState &m_state;
    QPointer<TextField> m_field;
};
