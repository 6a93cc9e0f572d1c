#pragma once

#include <QString>
#include <QStringView>

// Compares versions: numbers with dots between them, such as "1.4.2".
namespace Version {

// Returns the version of this build.
[[nodiscard]] QString current();

// Returns whether a is newer, compared number by number. A missing number and a
// piece that is not a number count as 0; empty pieces do not count at all.
[[nodiscard]] bool isNewer(QStringView a, QStringView than);

} // namespace Version
