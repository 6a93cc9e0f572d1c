#include "settings/LinkButton.h"

#include "base/Fonts.h"

#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace {

constexpr double textSize = 11; // points

} // namespace

LinkButton::LinkButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setFlat(true);
    setAutoDefault(true);
    setFont(Fonts::window(textSize));
    setCursor(Qt::PointingHandCursor);
}

// Most styles show the focus of a button in its frame, which this one has not.
void LinkButton::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, option);
}
