#include "platform/KeyCodes.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

struct Row {
    std::uint32_t keyCode;
    std::uint32_t evdev;
    Qt::Key key;
};

// In the order of the virtual key codes. The key to the left of Z on keyboards
// that have one is 10, the one to the left of 1 is 50.
constexpr Row rows[] = {
    {0, 30, Qt::Key_A},
    {1, 31, Qt::Key_S},
    {2, 32, Qt::Key_D},
    {3, 33, Qt::Key_F},
    {4, 35, Qt::Key_H},
    {5, 34, Qt::Key_G},
    {6, 44, Qt::Key_Z},
    {7, 45, Qt::Key_X},
    {8, 46, Qt::Key_C},
    {9, 47, Qt::Key_V},
    {10, 86, Qt::Key_Less},
    {11, 48, Qt::Key_B},
    {12, 16, Qt::Key_Q},
    {13, 17, Qt::Key_W},
    {14, 18, Qt::Key_E},
    {15, 19, Qt::Key_R},
    {16, 21, Qt::Key_Y},
    {17, 20, Qt::Key_T},
    {18, 2, Qt::Key_1},
    {19, 3, Qt::Key_2},
    {20, 4, Qt::Key_3},
    {21, 5, Qt::Key_4},
    {22, 7, Qt::Key_6},
    {23, 6, Qt::Key_5},
    {24, 13, Qt::Key_Equal},
    {25, 10, Qt::Key_9},
    {26, 8, Qt::Key_7},
    {27, 12, Qt::Key_Minus},
    {28, 9, Qt::Key_8},
    {29, 11, Qt::Key_0},
    {30, 27, Qt::Key_BracketRight},
    {31, 24, Qt::Key_O},
    {32, 22, Qt::Key_U},
    {33, 26, Qt::Key_BracketLeft},
    {34, 23, Qt::Key_I},
    {35, 25, Qt::Key_P},
    {36, 28, Qt::Key_Return},
    {37, 38, Qt::Key_L},
    {38, 36, Qt::Key_J},
    {39, 40, Qt::Key_Apostrophe},
    {40, 37, Qt::Key_K},
    {41, 39, Qt::Key_Semicolon},
    {42, 43, Qt::Key_Backslash},
    {43, 51, Qt::Key_Comma},
    {44, 53, Qt::Key_Slash},
    {45, 49, Qt::Key_N},
    {46, 50, Qt::Key_M},
    {47, 52, Qt::Key_Period},
    {48, 15, Qt::Key_Tab},
    {49, 57, Qt::Key_Space},
    {50, 41, Qt::Key_QuoteLeft},
    {51, 14, Qt::Key_Backspace},
    {53, 1, Qt::Key_Escape},
    {64, 187, Qt::Key_F17},
    {65, 83, Qt::Key_Period},
    {67, 55, Qt::Key_Asterisk},
    {69, 78, Qt::Key_Plus},
    {71, 69, Qt::Key_NumLock},
    {75, 98, Qt::Key_Slash},
    {76, 96, Qt::Key_Enter},
    {78, 74, Qt::Key_Minus},
    {79, 188, Qt::Key_F18},
    {80, 189, Qt::Key_F19},
    {81, 117, Qt::Key_Equal},
    {82, 82, Qt::Key_0},
    {83, 79, Qt::Key_1},
    {84, 80, Qt::Key_2},
    {85, 81, Qt::Key_3},
    {86, 75, Qt::Key_4},
    {87, 76, Qt::Key_5},
    {88, 77, Qt::Key_6},
    {89, 71, Qt::Key_7},
    {90, 190, Qt::Key_F20},
    {91, 72, Qt::Key_8},
    {92, 73, Qt::Key_9},
    {93, 124, Qt::Key_yen},
    {95, 121, Qt::Key_Comma},
    {96, 63, Qt::Key_F5},
    {97, 64, Qt::Key_F6},
    {98, 65, Qt::Key_F7},
    {99, 61, Qt::Key_F3},
    {100, 66, Qt::Key_F8},
    {101, 67, Qt::Key_F9},
    {103, 87, Qt::Key_F11},
    {105, 183, Qt::Key_F13},
    {106, 186, Qt::Key_F16},
    {107, 184, Qt::Key_F14},
    {109, 68, Qt::Key_F10},
    {110, 127, Qt::Key_Menu},
    {111, 88, Qt::Key_F12},
    {113, 185, Qt::Key_F15},
    {114, 110, Qt::Key_Insert},
    {115, 102, Qt::Key_Home},
    {116, 104, Qt::Key_PageUp},
    {117, 111, Qt::Key_Delete},
    {118, 62, Qt::Key_F4},
    {119, 107, Qt::Key_End},
    {120, 60, Qt::Key_F2},
    {121, 109, Qt::Key_PageDown},
    {122, 59, Qt::Key_F1},
    {123, 105, Qt::Key_Left},
    {124, 106, Qt::Key_Right},
    {125, 108, Qt::Key_Down},
    {126, 103, Qt::Key_Up},
};

const Row *rowWith(std::uint32_t Row::*field, std::uint32_t value)
{
    const auto *row = std::ranges::find(rows, value, field);
    return row == std::end(rows) ? nullptr : row;
}

bool isLatin(Qt::Key key)
{
    constexpr int lastLatin1 = 0xff;
    constexpr int firstSpecial = 0x01000000; // Qt's keys that type nothing
    return key <= lastLatin1 || key >= firstSpecial;
}

} // namespace

namespace KeyCodes {

std::optional<std::uint32_t> evdevOf(const QKeyEvent &event)
{
    const std::uint32_t code = event.nativeScanCode();
    return code > nativeOffset ? std::optional(code - nativeOffset) : std::nullopt;
}

std::optional<std::uint32_t> toEvdev(std::uint32_t keyCode)
{
    const Row *row = rowWith(&Row::keyCode, keyCode);
    return row ? std::optional{row->evdev} : std::nullopt;
}

std::optional<std::uint32_t> fromEvdev(std::uint32_t evdevCode)
{
    const Row *row = rowWith(&Row::evdev, evdevCode);
    return row ? std::optional{row->keyCode} : std::nullopt;
}

std::optional<Qt::Key> qtKeyAt(std::uint32_t evdevCode)
{
    const Row *row = rowWith(&Row::evdev, evdevCode);
    return row ? std::optional{row->key} : std::nullopt;
}

Qt::Key latinKey(Qt::Key key, std::uint32_t evdevCode)
{
    return isLatin(key) ? key : qtKeyAt(evdevCode).value_or(key);
}

Qt::Key latinKey(const QKeyEvent &event)
{
    return latinKey(static_cast<Qt::Key>(event.key()), evdevOf(event).value_or(0));
}

} // namespace KeyCodes
