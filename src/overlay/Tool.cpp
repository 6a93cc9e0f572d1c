#include "overlay/Tool.h"

#include "l10n/L10n.h"

#include <algorithm>

QString label(Tool tool)
{
    switch (tool) {
    case Tool::pencil: return L10n::t(u"Lápiz");
    case Tool::line: return L10n::t(u"Línea");
    case Tool::arrow: return L10n::t(u"Flecha");
    case Tool::rectangle: return L10n::t(u"Rectángulo");
    case Tool::ellipse: return L10n::t(u"Elipse");
    case Tool::marker: return L10n::t(u"Marcador");
    case Tool::text: return L10n::t(u"Texto");
    case Tool::pixelate: return L10n::t(u"Pixelar");
    }
    Q_UNREACHABLE();
}

char16_t keyLetter(Tool tool)
{
    constexpr std::array<char16_t, 8> letters{u'P', u'L', u'A', u'R', u'E', u'M', u'T', u'X'};
    return letters.at(static_cast<size_t>(tool));
}

std::optional<Tool> toolForLetter(QChar letter)
{
    const auto *tool
        = std::ranges::find(allTools, letter.toUpper(), [](Tool t) { return QChar(keyLetter(t)); });
    return tool == allTools.end() ? std::nullopt : std::optional(*tool);
}
