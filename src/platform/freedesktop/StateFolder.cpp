#include "platform/StateFolder.h"

#include <QDir>

// As the XDG base directory specification has it: a path that is not absolute counts
// as none.
QString stateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    const QString state
        = QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
    return QDir::cleanPath(state + QStringLiteral("/Vellumora"));
}
