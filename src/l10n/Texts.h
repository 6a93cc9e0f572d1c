#pragma once

#include <QStringView>

#include <span>

// Holds one text in every interface language, in the order of Lang. The Spanish
// text is also the key. A row cannot leave out a language.
struct Text {
    QStringView es, en, it, fr, de, pt;
};

[[nodiscard]] std::span<const Text> shellTexts();
[[nodiscard]] std::span<const Text> overlayTexts();
[[nodiscard]] std::span<const Text> updaterTexts();
