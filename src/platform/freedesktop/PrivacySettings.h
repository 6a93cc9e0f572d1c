#pragma once

// The page of the desktop's settings that says what programs may see.
namespace PrivacySettings {

// Opens it and returns; false where the desktop has none.
[[nodiscard]] bool open();

} // namespace PrivacySettings
