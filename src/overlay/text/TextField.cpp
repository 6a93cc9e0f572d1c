#include "overlay/text/TextField.h"

#include "base/Rect.h"
#include "l10n/L10n.h"
#include "marks/TextShape.h"
#include "platform/KeyCodes.h"

#include <QFontMetricsF>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {

constexpr double textInset = 2;    // points from the field's left edge
constexpr double roomToGrow = 20;  // points behind the text
constexpr double narrowest = 60;   // points
constexpr double outlineRoom = 4;  // points above and below the line
constexpr double caretWidth = 1.5; // points
constexpr float placeholderAlpha = 0.55F;
constexpr float selectionAlpha = 0.4F;

// Super does what Control does, and on a keyboard without Latin letters the key's
// position decides. Qt's line edit knows only Control and Latin letters.
QKeyEvent asCommand(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    const bool command = modifiers & (Qt::MetaModifier | Qt::ControlModifier);
    return {event.type(),
            command ? KeyCodes::latinKey(event) : event.key(),
            command ? (modifiers & ~Qt::MetaModifier) | Qt::ControlModifier : modifiers,
            event.nativeScanCode(),
            event.nativeVirtualKey(),
            event.nativeModifiers(),
            command ? QString() : event.text(),
            event.isAutoRepeat(),
            static_cast<quint16>(event.count())};
}

bool endsTheText(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape; }

} // namespace

TextField::TextField(QWidget &overlay, const ViewSpace &space, QPointF at, const Annotation &look)
    : QLineEdit(&overlay)
    , m_space(space)
    , m_at(at)
    , m_look(look)
{
    m_look.points = {at + QPointF{textInset, 0}, at + QPointF{textInset, 0}};
    setAccessibleName(L10n::t(u"Texto"));
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_MacShowFocusRect, false);
    setCursor(Qt::IBeamCursor);
    setFont(TextShape::font(m_look.fontSize));
    connect(this, &QLineEdit::textChanged, this, &TextField::fit);
    connect(this, &QLineEdit::selectionChanged, this, qOverload<>(&QWidget::update));
    connect(this, &QLineEdit::cursorPositionChanged, this, qOverload<>(&QWidget::update));
    fit();
}

Annotation TextField::mark() const
{
    Annotation mark = m_look;
    mark.text = text();
    return mark;
}

void TextField::setTextColor(const QColor &color)
{
    m_look.color = color;
    update();
}

void TextField::setTextSize(double size)
{
    m_look.fontSize = size;
    setFont(TextShape::font(size));
    fit();
}

QString TextField::shownText() const { return text().insert(cursorPosition(), m_composing); }

// The field hangs on its base line, so a larger text grows in both directions.
void TextField::fit()
{
    const QFontMetricsF metrics(TextShape::font(m_look.fontSize));
    const double needed
        = std::max(TextShape::width(shownText(), m_look.fontSize),
                   shownText().isEmpty() ? TextShape::width(L10n::t(u"Escribe…"), m_look.fontSize) : 0);
    const QRectF box{m_at.x(), m_at.y() - metrics.descent() - outlineRoom,
                     std::max(needed + roomToGrow, narrowest), metrics.height() + 2 * outlineRoom};
    setGeometry(m_space.around(box));
    update();
}

double TextField::offsetOf(int position) const
{
    QTextLayout layout(shownText(), TextShape::font(m_look.fontSize));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.isValid() ? line.cursorToX(position) : 0;
}

QRectF TextField::caret() const
{
    const QFontMetricsF metrics(TextShape::font(m_look.fontSize));
    const QPointF origin = m_look.points.first();
    const double x = origin.x() + offsetOf(cursorPosition() + m_composingCursor);
    return {x - caretWidth / 2, origin.y() - metrics.descent(), caretWidth, metrics.height()};
}

void TextField::drawCaretAndSelection(QPainter &painter) const
{
    const QRectF bar = caret();
    if (hasSelectedText()) {
        const double from = m_look.points.first().x() + offsetOf(selectionStart());
        const double to = m_look.points.first().x() + offsetOf(selectionEnd());
        QColor shade = palette().color(QPalette::Highlight);
        shade.setAlphaF(selectionAlpha);
        painter.fillRect(QRectF{std::min(from, to), minY(bar), std::abs(to - from), bar.height()}, shade);
    }
    if (hasFocus())
        painter.fillRect(bar, m_look.color);
}

void TextField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.translate(-pos());
    painter.setTransform(m_space.upwards(), true);
    drawCaretAndSelection(painter);
    Annotation shown = m_look;
    shown.text = shownText();
    if (shown.text.isEmpty()) {
        shown.text = L10n::t(u"Escribe…");
        painter.setOpacity(placeholderAlpha);
    }
    shown.draw(painter, m_space.bounds());
}

void TextField::keyPressEvent(QKeyEvent *event)
{
    if (endsTheText(event->key()) && onDone)
        return onDone();
    QKeyEvent key = asCommand(*event);
    if (key.matches(QKeySequence::Copy) && !hasSelectedText())
        return event->accept(); // Qt would pass it on, and the picture would be copied
    QLineEdit::keyPressEvent(&key);
    event->setAccepted(key.isAccepted());
}

void TextField::inputMethodEvent(QInputMethodEvent *event)
{
    m_composing = event->preeditString();
    m_composingCursor = static_cast<int>(m_composing.size());
    for (const auto &attribute : event->attributes())
        if (attribute.type == QInputMethodEvent::Cursor)
            m_composingCursor = attribute.start;
    QLineEdit::inputMethodEvent(event);
    fit();
}

QVariant TextField::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query == Qt::ImCursorRectangle)
        return m_space.toWidget(caret()).translated(-pos());
    return QLineEdit::inputMethodQuery(query);
}

// Tab has nowhere to go.
bool TextField::focusNextPrevChild(bool) { return false; }
