#include "updater/SwapScript.h"

#include <QRegularExpression>

namespace SwapScript {

bool canQuote(const QString &path)
{
    static const QRegularExpression special(QStringLiteral("[\"$`\\\\\\r\\n\\x{0}]"));
    return !path.contains(special);
}

QString text(const Paths &paths, qint64 pid, const SwapCommands &commands)
{
    // The copy takes its time and may fail, so it is made under the other name;
    // the bundle's own name then changes hands in one step. A leftover that
    // could not be removed would swallow the copy.
    return QStringLiteral("while kill -0 %1 2>/dev/null; do sleep 0.2; done\n"
                          "rm -rf \"%2.anterior\"\n"
                          "[ ! -e \"%2.anterior\" ] && %5 \"%3\" \"%2.anterior\" && %6 \"%2\" "
                          "\"%2.anterior\"; rm -rf \"%2.anterior\"\n"
                          "rm -rf \"%4\"\n"
                          "%7 \"%2/bin/vellumora\" >/dev/null 2>&1")
        .arg(QString::number(pid), paths.app, paths.staged, paths.work, commands.copy, commands.exchange,
             commands.open);
}

} // namespace SwapScript
