#pragma once

#include <QStringView>

#include <span>

// One text in every interface language, in the order of Lang. The Spanish one
// is also the key, and a row cannot miss a language.
struct Text {
    QStringView es, en, it, fr, de, pt;
};

[[nodiscard]] std::span<const Text> shellTexts();
[[nodiscard]] std::span<const Text> overlayTexts();
[[nodiscard]] std::span<const Text> updaterTexts();
