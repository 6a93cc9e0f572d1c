#pragma once

// Opens the page of the desktop's settings that says what programs may see.
namespace PrivacySettings {

// Opens the page and returns; false where the desktop has none.
[[nodiscard]] bool open();

} // namespace PrivacySettings
