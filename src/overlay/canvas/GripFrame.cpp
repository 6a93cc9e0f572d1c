#include "overlay/canvas/GripFrame.h"

#include "base/Rect.h"
#include "base/ViewSpace.h"
#include "marks/EditorState.h"
#include "marks/MarkFootprint.h"
#include "overlay/canvas/DashedFrame.h"
#include "toolbar/Theme.h"

#include <QPainter>

namespace {

constexpr float groundAlpha = 0.55F; // of the dark line under the dashes, which shows on a light screen

} // namespace

// Only round what shows of the mark.
QRect GripFrame::frameOf(const EditorState &state) const
{
    const auto mark = state.gripped();
    if (!mark || !state.selection)
        return {};
    QRectF box;
    for (const QRectF &part : MarkFootprint::boxes(*mark))
        box |= part;
    return m_space.around(box) & m_space.toWidget(*state.selection).toRect();
}

QRegion GripFrame::line() const { return QRegion(m_frame) - m_frame.adjusted(2, 2, -2, -2); }

QRegion GripFrame::follow(const EditorState &state)
{
    const QRect frame = frameOf(state);
    if (frame == m_frame)
        return {};
    const QRegion before = line();
    m_frame = frame;
    return before + line();
}

void GripFrame::draw(QPainter &painter) const
{
    if (m_frame.isEmpty())
        return;
    const QRectF middle = grown(m_space.fromWidget(QRectF(m_frame)), -0.5);
    DashedFrame::draw(painter, middle, Theme::selectionBorder, QColor::fromRgbF(0, 0, 0, groundAlpha));
}
