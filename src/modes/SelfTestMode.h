#pragma once

#include <QString>

struct Platform;

// Tries every service on the running desktop, for a user who wants to know why
// something does not work.
namespace SelfTestMode {

// Takes a real capture and writes pictures and "report.txt" into the folder. The
// overlays show for a moment. Returns the exit status: 0 when a capture can be
// taken, marked and copied, whatever else is missing.
[[nodiscard]] int run(Platform &platform, const QString &folder);

} // namespace SelfTestMode
