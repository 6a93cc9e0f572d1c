#include "overlay/bars/ToolBars.h"

#include "access/Spoken.h"
#include "base/Rect.h"
#include "l10n/L10n.h"
#include "marks/Kinds.h"
#include "toolbar/Bar.h"
#include "toolbar/BarButton.h"
#include "toolbar/ColorName.h"
#include "toolbar/ColorPalette.h"
#include "toolbar/PaletteAccess.h"

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr double smallestSelection = 2; // points; no bar for less
constexpr double fadedAlpha = 0.12;
constexpr auto fadeTime = 150ms;

QString withKey(const QString &text, QStringView key) { return text + QStringLiteral("  ") + key.toString(); }

QString widthText(double width) { return QString::number(static_cast<int>(width)) + QStringLiteral(" px"); }

} // namespace

ToolBars::ToolBars(QWidget &overlay, const ViewSpace &space, const EditorState &state)
    : m_overlay(overlay)
    , m_space(space)
    , m_state(state)
    , m_bar(new Bar(Qt::Horizontal, &overlay))
{
    m_bar->setAccessibleName(L10n::t(u"Herramientas"));
    m_bar->hide();
    m_fade.setDuration(std::chrono::milliseconds(fadeTime).count());
    QObject::connect(&m_fade, &QVariantAnimation::valueChanged, m_bar,
                     [this](const QVariant &alpha) { m_bar->setAlpha(alpha.toDouble()); });
    addTools();
    addCommands();
    followState();
}

BarButton *ToolBars::add(QStringView symbol, const Words &words, std::function<void()> action)
{
    auto *button = new BarButton(symbol.toString());
    button->setToolTip(words.toolTip);
    button->setAccessibleName(words.name);
    Spoken::setKeys(*button, words.keys);
    QObject::connect(button, &BarButton::clicked, button, [this, action = std::move(action)] {
        if (mayAct())
            action();
    });
    m_bar->addButton(button);
    return button;
}

void ToolBars::addTools()
{
    for (const Tool tool : allTools) {
        const QString key(QChar(keyLetter(tool)));
        m_toolButtons[tool] = add(kindOf(tool).symbol, {label(tool), withKey(label(tool), key), key},
                                  [this, tool] { onTool(tool); });
        Spoken::setRole(*m_toolButtons[tool], QAccessible::RadioButton);
        m_toolButtons[tool]->setActive(false);
    }
    m_bar->addSeparator();
}

void ToolBars::addCommands()
{
    const auto command = [this](Command what) { return [this, what] { onCommand(what); }; };
    const auto withCommand = [](const QString &name, QChar key) {
        return Words{name, withKey(name, QStringLiteral("⌘") + key), QStringLiteral("Super+") + key};
    };
    m_colorButton
        = add(u"circle.fill", {L10n::t(u"Color"), L10n::t(u"Color · I: cuentagotas · rueda: grosor"), {}},
              [this] { showPalette(); });
    Spoken::setOpen(*m_colorButton, false);
    add(u"arrow.uturn.backward", withCommand(L10n::t(u"Deshacer"), u'Z'), command(Command::undo));
    m_bar->addSeparator();
    add(u"square.and.arrow.down", withCommand(L10n::t(u"Guardar"), u'S'), command(Command::save));
    add(u"printer", withCommand(L10n::t(u"Imprimir"), u'P'), command(Command::print));
    const QString close = L10n::t(u"Cerrar");
    add(u"xmark", {close, withKey(close, u"Esc"), L10n::t(u"Esc")}, command(Command::close));
    m_copyButton = add(u"doc.on.doc", {L10n::t(u"Copiar"), L10n::t(u"Copiar  ⌘C · Intro"), L10n::t(u"Intro")},
                       command(Command::copy));
    m_copyButton->setPrimary(true);
}

bool ToolBars::barShows() const { return !m_bar->isHidden(); }

void ToolBars::placeBars()
{
    const auto &selection = m_state.selection;
    if (!selection || selection->width() <= smallestSelection || selection->height() <= smallestSelection)
        return m_bar->hide();
    fitToWidth();
    m_place = BarPlacement::bar(*selection, m_bar->size(), m_state.bounds);
    m_bar->move(m_space.toWidget(m_place.frame).topLeft().toPoint());
    m_bar->show();
    placePalette();
}

void ToolBars::hideBar()
{
    closePalette();
    m_bar->hide();
}

// A narrow screen has no room for words.
void ToolBars::fitToWidth()
{
    const bool narrow = BarPlacement::isNarrow(m_state.bounds);
    if (m_copyButton->state().label.has_value() != narrow)
        return;
    m_copyButton->setLabel(narrow ? std::nullopt : std::optional(L10n::t(u"Copiar")));
    m_copyButton->setKeyHint(narrow ? std::nullopt : std::optional(QStringLiteral("⌘C")));
    m_bar->layoutButtons();
}

void ToolBars::fadeBar(std::optional<QPointF> near)
{
    const double target = near && BarPlacement::isNear(m_place.frame, *near) ? fadedAlpha : 1;
    if (m_fade.endValue() == target
        || (m_bar->alpha() == target && m_fade.state() != QVariantAnimation::Running))
        return;
    m_fade.stop();
    m_fade.setStartValue(m_bar->alpha());
    m_fade.setEndValue(target);
    m_fade.start();
}

void ToolBars::followState()
{
    for (const auto &[tool, button] : m_toolButtons) {
        button->setDotColor(m_state.color);
        if (button->state().isActive != (m_state.tool == tool))
            button->setActive(m_state.tool == tool);
    }
    m_colorButton->setSwatch(m_state.color);
    m_colorButton->setWidthLabel(widthText(m_state.lineWidth));
    m_colorButton->setAccessibleDescription(spokenColor(m_state.color) + QStringLiteral(", ")
                                            + widthText(m_state.lineWidth));
    if (barShows())
        placeBars(); // its length may have changed
}

void ToolBars::showPalette()
{
    if (m_palette)
        return closePalette();
    PaletteAccess::install();
    m_palette = new ColorPalette(&m_overlay);
    m_palette->setSelected(m_state.color);
    m_palette->onPick = [this](const QColor &color) {
        onColor(color);
        closePalette();
    };
    m_palette->onEyedropper = [this] {
        closePalette();
        onCommand(Command::pickColor);
    };
    m_palette->show();
    Spoken::setOpen(*m_colorButton, true);
    placePalette();
}

void ToolBars::placePalette()
{
    if (!m_palette)
        return;
    const double middle = m_colorButton->mapTo(&m_overlay, QRectF(m_colorButton->rect()).center()).x();
    const QRectF frame = BarPlacement::palette(m_place, middle, m_palette->size(), m_state.bounds);
    m_palette->move(m_space.toWidget(frame).topLeft().toPoint());
}

// It may be in the middle of its own click.
void ToolBars::closePalette()
{
    if (!m_palette)
        return;
    m_palette->hide();
    m_palette->deleteLater();
    m_palette.clear();
    Spoken::setOpen(*m_colorButton, false);
}
