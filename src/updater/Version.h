#pragma once

#include <QString>
#include <QStringView>

// Versions are numbers with dots between them, such as "1.4.2".
namespace Version {

// The version of this build.
[[nodiscard]] QString current();

// Compares number by number. A missing number and a piece that is no number
// count as 0, empty pieces do not count at all.
[[nodiscard]] bool isNewer(QStringView a, QStringView than);

} // namespace Version
