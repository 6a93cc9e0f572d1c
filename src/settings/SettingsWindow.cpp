#include "settings/SettingsWindow.h"

#include "access/Spoken.h"
#include "base/Fonts.h"
#include "hotkey/Prefs.h"
#include "hotkey/ShortcutForm.h"
#include "l10n/L10n.h"
#include "platform/Clipboard.h"
#include "platform/Desktop.h"
#include "settings/BindByHand.h"
#include "settings/LabelColors.h"
#include "settings/LinkButton.h"
#include "settings/ShortcutRecorder.h"
#include "updater/Version.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

namespace {

// Points, as all sizes and distances here.
constexpr QSize smallest{380, 225};
constexpr int margin = 20;
constexpr int rowSpacing = 8;
constexpr int afterStatus = 16;
constexpr int afterLogin = 18;
constexpr int footerSpacing = 14;

constexpr double textSize = 13;
constexpr double statusSize = 11;
constexpr double versionSize = 10;

QString howToRecord() { return L10n::t(u"Haz clic y pulsa la combinación. Por defecto ⇧⌘X."); }
QString howToBind() { return L10n::t(u"Asigna esta orden a una tecla en los ajustes de tu escritorio."); }
QString refusal() { return L10n::t(u"Ese atajo lo usa otra app. Prueba otro."); }

QLabel *makeLabel(const QString &text, const QFont &font, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // a key may type "<"
    label->setFont(font);
    return label;
}

// So that the window keeps its size whichever of them shows.
void reserveWidth(QLabel &label, std::initializer_list<QString> texts)
{
    const QString shown = label.text();
    int width = 0;
    for (const QString &text : texts) {
        label.setText(text);
        width = qMax(width, label.sizeHint().width());
    }
    label.setMinimumWidth(width);
    label.setText(shown);
}

void setOwnColor(QWidget &widget, QPalette::ColorRole role, const QColor &color)
{
    QPalette palette;
    palette.setColor(role, color);
    widget.setPalette(palette);
}

} // namespace

SettingsWindow::SettingsWindow(const Services &services)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                           | Qt::WindowCloseButtonHint)
    , m_services(services)
    , m_recorder(new ShortcutRecorder(Prefs::shortcut(), services.layout, services.keyboard, this))
    , m_byHand(new BindByHand(this))
    , m_status(makeLabel(howToRecord(), Fonts::window(statusSize), this))
    , m_login(new QCheckBox(L10n::t(u"Abrir Vellumora al iniciar sesión"), this))
    , m_version(
          makeLabel(QStringLiteral("Vellumora ") + Version::current(), Fonts::window(versionSize), this))
    , m_cafe(new LinkButton(L10n::t(u"☕ Invítame a un café"), this))
{
    Spoken::setRole(*this, QAccessible::Window);
    setWindowTitle(L10n::t(u"Ajustes de Vellumora"));
    build();
    recolour();
    m_recorder->onChange = [this](const Shortcut &proposed) { changeShortcut(proposed); };
    m_byHand->onCopy = [this](const QString &command) {
        if (!m_services.desktop.clipboard().offer(
                {{QStringLiteral("text/plain;charset=utf-8"), command.toUtf8()},
                 {QStringLiteral("text/plain"), command.toUtf8()}}))
            m_services.desktop.beep();
    };
    connect(m_login, &QCheckBox::clicked, this, &SettingsWindow::toggleLogin);
    connect(m_cafe, &LinkButton::clicked, this, &SettingsWindow::openCafe);
    auto *quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    connect(quit, &QShortcut::activated, this, [this] {
        if (onQuit)
            onQuit();
    });
    refresh();
    adjustSize();
    setGeometry(
        QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size(), screen()->availableGeometry()));
}

void SettingsWindow::build()
{
    auto *content = new QWidget(this);
    content->setMinimumSize(smallest);
    auto *around = new QVBoxLayout(this);
    around->setContentsMargins({});
    around->setSizeConstraint(QLayout::SetFixedSize);
    around->addWidget(content);

    auto *heading
        = makeLabel(L10n::t(u"Atajo para capturar"), Fonts::window(textSize, QFont::DemiBold), content);
    heading->setBuddy(m_recorder);
    reserveWidth(*m_status, {howToRecord(), refusal()});
    m_login->setFont(Fonts::window(textSize));
    auto *footer = new QHBoxLayout;
    footer->setSpacing(footerSpacing);
    footer->addWidget(m_version);
    footer->addWidget(m_cafe);
    footer->addStretch();

    auto *rows = new QVBoxLayout(content);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(rowSpacing);
    rows->addWidget(heading);
    rows->addWidget(m_recorder, 0, Qt::AlignLeft);
    rows->addWidget(m_byHand);
    m_byHand->hide();
    rows->addWidget(m_status);
    rows->addSpacing(afterStatus - rowSpacing);
    rows->addWidget(m_login, 0, Qt::AlignLeft);
    rows->addSpacing(afterLogin - rowSpacing);
    rows->addLayout(footer);
    rows->addStretch();
}

void SettingsWindow::present()
{
    if (!isVisible())
        refresh();
    refreshLogin();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SettingsWindow::refresh()
{
    m_recorder->showShortcut(Prefs::shortcut());
    if (m_binding == HotKeyService::Binding::nobody)
        m_byHand->setFocus();
    else
        m_recorder->setFocus();
    showStatus(Status::hint);
    refreshLogin();
}

void SettingsWindow::setBinding(HotKeyService::Binding binding, const QString &boundKeys)
{
    m_binding = binding;
    m_boundKeys = boundKeys;
    const bool byHand = binding == HotKeyService::Binding::nobody;
    if (byHand)
        stopRecording();
    m_recorder->setVisible(!byHand);
    m_byHand->setVisible(byHand);
    showStatus(Status::hint);
}

// What is to be done, or what the desktop has made of it already.
QString SettingsWindow::hint() const
{
    if (m_binding == HotKeyService::Binding::nobody)
        return howToBind();
    if (m_binding == HotKeyService::Binding::desktop && !m_boundKeys.isEmpty())
        return L10n::t(u"Tu escritorio captura con %@.", m_boundKeys);
    return howToRecord();
}

void SettingsWindow::stopRecording() { m_recorder->stop(); }

bool SettingsWindow::hearShortcut(const Shortcut &inForce)
{
    const bool recording = m_recorder->recording();
    if (recording)
        m_recorder->record(inForce);
    return recording;
}

void SettingsWindow::changeShortcut(const Shortcut &proposed)
{
    const bool taken = onShortcut && onShortcut(proposed);
    if (taken)
        Prefs::setShortcut(proposed);
    showStatus(taken ? Status::saved : Status::refused);
}

void SettingsWindow::showStatus(Status status)
{
    m_shown = status;
    if (status == Status::hint)
        m_status->setText(hint());
    else if (status == Status::refused)
        m_status->setText(refusal());
    else
        m_status->setText(
            L10n::t(u"Guardado: %@", ShortcutForm::display(Prefs::shortcut(), m_services.layout)));
    const QString spoken = ShortcutForm::inWords(m_status->text());
    m_status->setAccessibleName(spoken);
    m_recorder->setAccessibleDescription(spoken);
    if (status != Status::hint)
        m_announcer.say(spoken);
    recolour();
}

void SettingsWindow::recolour()
{
    const bool refused = m_shown == Status::refused;
    setOwnColor(*m_status, QPalette::WindowText,
                refused ? LabelColors::refusal(palette()) : LabelColors::secondary(palette()));
    setOwnColor(*m_version, QPalette::WindowText, LabelColors::tertiary(palette()));
    for (QWidget *framed : {static_cast<QWidget *>(m_login), static_cast<QWidget *>(m_recorder)})
        setOwnColor(*framed, QPalette::Window, LabelColors::frame(palette()));
    setOwnColor(*m_cafe, QPalette::ButtonText, LabelColors::link(palette()));
}

void SettingsWindow::refreshLogin() { m_login->setChecked(Prefs::launchAtLogin(m_services.loginItem)); }

void SettingsWindow::toggleLogin(bool wanted)
{
    Prefs::setLaunchAtLogin(m_services.loginItem, wanted);
    refreshLogin();
}

void SettingsWindow::openCafe() { m_services.desktop.openWeb(L10n::cafe()); }

void SettingsWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        recolour();
    QWidget::changeEvent(event);
}

void SettingsWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat())
        close();
    else
        QWidget::keyPressEvent(event);
}
