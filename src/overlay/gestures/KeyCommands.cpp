#include "overlay/gestures/KeyCommands.h"
#include "marks/Kinds.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr double coarseFrom = 12; // points, as are the following
constexpr double thinnest = 1;
constexpr double thickest = 36;

constexpr std::array<std::pair<Qt::Key, Command>, 5> withCommand{{
    {Qt::Key_C, Command::copy},
    {Qt::Key_S, Command::save},
    {Qt::Key_P, Command::print},
    {Qt::Key_Z, Command::undo},
    {Qt::Key_A, Command::selectAll},
}};

} // namespace

namespace KeyCommands {

bool isCommand(Qt::KeyboardModifiers held)
{
    return (held & (Qt::ControlModifier | Qt::MetaModifier)) != Qt::NoModifier;
}

std::optional<Meaning> meaning(QKeyCombination key, bool hasSelection)
{
    const bool command = isCommand(key.keyboardModifiers());
    if (key.key() == Qt::Key_Escape)
        return Command::close;
    if (command) {
        const auto *row = std::ranges::find(withCommand, key.key(), &std::pair<Qt::Key, Command>::first);
        if (row != withCommand.end())
            return row->second;
    }
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return Command::copy;
    if (key.key() == Qt::Key_Delete && key.keyboardModifiers().testFlag(Qt::AltModifier) && !command)
        return Command::removeMark;
    if (const auto step = RegionKeys::step(key))
        return *step;
    if (key == QKeyCombination(Qt::Key_Space) && !hasSelection)
        return Command::lastRegion;
    if (key == QKeyCombination(Qt::Key_Tab) && hasSelection)
        return Command::nextCorner;
    if (command || !hasSelection || key.key() > Qt::Key_Z)
        return std::nullopt;
    if (key.key() == Qt::Key_I)
        return Command::pickColor;
    return toolForLetter(QChar(static_cast<char16_t>(key.key())));
}

double nextLineWidth(double width, WheelSteps::Step step)
{
    const double next = step == WheelSteps::Step::up ? width + (width >= coarseFrom ? 2 : 1)
                                                     : width - (width > coarseFrom ? 2 : 1);
    return std::clamp(next, thinnest, thickest);
}

} // namespace KeyCommands
