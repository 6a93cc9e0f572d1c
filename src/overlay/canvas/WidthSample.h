#pragma once

#include "overlay/canvas/Notice.h"

#include <QPointF>

struct EditorState;

// Shows for a moment what the next mark would look like, beside the place where the
// wheel was turned.
class WidthSample {
public:
    // All three must outlive it.
    WidthSample(QWidget &overlay, const ViewSpace &space, const EditorState &state)
        : m_state(state)
        , m_notice(overlay, space)
    {}

    // Shows the sample beside a view point.
    void show(QPointF at);
    // Follows a change of tool, colour or width, for as long as the sample shows.
    void follow();
    void hide() { m_notice.hide(); }

private:
    const EditorState &m_state;
    Notice m_notice;
    QPointF m_at; // view point
};
