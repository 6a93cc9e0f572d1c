#include "settings/ShortcutRecorder.h"

#include "access/Spoken.h"
#include "base/Fonts.h"
#include "base/LiteralText.h"
#include "hotkey/ShortcutForm.h"
#include "l10n/L10n.h"
#include "platform/KeyboardGrab.h"
#include "settings/RecorderRules.h"

#include <QKeyEvent>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr double textSize = 13; // points, as is the next
constexpr int besidePrompt = 12;

// A key that is held repeats itself: the server then reports it as released and
// pressed again in the same moment.
constexpr auto repetitionComes = 50ms;

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

QString prompt() { return L10n::t(u"Pulsa el atajo…"); }

} // namespace

ShortcutRecorder::ShortcutRecorder(const Shortcut &shortcut, const KeyboardLayout &layout,
                                   KeyboardGrab &keyboard, QWidget *parent)
    : QPushButton(prompt(), parent)
    , m_layout(layout)
    , m_keyboard(keyboard)
    , m_shortcut(shortcut)
{
    Spoken::setRole(*this, QAccessible::Button);
    setFont(Fonts::window(textSize));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumWidth(sizeHint().width() + 2 * besidePrompt);
    m_released.setInterval(repetitionComes);
    m_released.setSingleShot(true);
    m_released.callOnTimeout([this] { stop(); });
    connect(this, &QPushButton::clicked, this, &ShortcutRecorder::toggle);
    showTitle();
}

ShortcutRecorder::~ShortcutRecorder() { stop(); }

void ShortcutRecorder::toggle() { m_recording ? stop() : start(); }

void ShortcutRecorder::start()
{
    m_released.stop();
    m_lastKey.reset();
    m_recording = true;
    setFocus();
    m_keyboard.take(*window());
    showTitle();
}

void ShortcutRecorder::stop()
{
    if (!m_recording && !m_lastKey)
        return;
    m_released.stop();
    m_lastKey.reset();
    m_keyboard.release();
    endRecording();
}

void ShortcutRecorder::endRecording()
{
    m_recording = false;
    showTitle();
}

void ShortcutRecorder::record(const Shortcut &shortcut)
{
    showShortcut(shortcut);
    if (onChange)
        onChange(shortcut);
    stop();
}

void ShortcutRecorder::showShortcut(const Shortcut &shortcut)
{
    m_shortcut = shortcut;
    showTitle();
}

void ShortcutRecorder::showTitle()
{
    const QString title = m_recording ? prompt() : ShortcutForm::display(m_shortcut, m_layout);
    setText(literalText(title));
    const QString written = ShortcutForm::inWords(title);
    setToolTip(m_recording ? QString() : written);
    setAccessibleName(L10n::t(u"Atajo para capturar") + QStringLiteral(": ") + written);
    Spoken::setOn(*this, m_recording);
}

// Before the keys that move the focus or operate the button are looked for.
bool ShortcutRecorder::event(QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease
                       || event->type() == QEvent::ShortcutOverride;
    if (!isKey || (!m_recording && !m_lastKey))
        return QPushButton::event(event);
    hear(static_cast<const QKeyEvent &>(*event));
    event->accept();
    return true;
}

void ShortcutRecorder::hear(const QKeyEvent &event)
{
    if (m_lastKey)
        waitForRelease(event);
    else if (event.type() == QEvent::KeyPress)
        hearPress(event);
}

void ShortcutRecorder::hearPress(const QKeyEvent &event)
{
    const auto keyCode = RecorderRules::keyCodeOf(event);
    const std::uint64_t modifiers = RecorderRules::modifiersOf(event.modifiers());
    const auto verdict = RecorderRules::verdict(keyCode, modifiers);
    if (verdict == RecorderRules::Verdict::swallow)
        return;
    m_lastKey = event.nativeScanCode();
    if (verdict == RecorderRules::Verdict::accept) {
        m_shortcut = {*keyCode, modifiers};
        if (onChange)
            onChange(m_shortcut);
    }
    endRecording();
}

// The keyboard is kept until then: the repetitions of the key would reach whoever
// it was refused for, and close this window if it is the one that closes windows.
void ShortcutRecorder::waitForRelease(const QKeyEvent &event)
{
    if (event.nativeScanCode() != m_lastKey)
        return;
    if (event.type() == QEvent::KeyRelease)
        m_released.start();
    else
        m_released.stop();
}

// Return works the button like Space, on release; the press that starts recording
// is over then.
void ShortcutRecorder::keyPressEvent(QKeyEvent *event)
{
    if (isReturn(*event) && !event->isAutoRepeat())
        setDown(true);
    else
        QPushButton::keyPressEvent(event);
}

void ShortcutRecorder::keyReleaseEvent(QKeyEvent *event)
{
    if (!isReturn(*event))
        return QPushButton::keyReleaseEvent(event);
    if (!isDown() || event->isAutoRepeat())
        return;
    setDown(false);
    click();
}

void ShortcutRecorder::focusOutEvent(QFocusEvent *event)
{
    stop();
    QPushButton::focusOutEvent(event);
}

void ShortcutRecorder::hideEvent(QHideEvent *event)
{
    stop();
    QPushButton::hideEvent(event);
}
