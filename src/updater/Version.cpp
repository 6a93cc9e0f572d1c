#include "updater/Version.h"

namespace Version {

QString current() { return QStringLiteral(VELLUMORA_VERSION); }

} // namespace Version
