#include "updater/SwapScript.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace SwapScript {

std::optional<QChar> unquotable(const QString &path)
{
    static const QRegularExpression special(QStringLiteral("[\"$`\\\\\\r\\n\\x{0}]"));
    const auto at = path.indexOf(special);
    return at < 0 ? std::nullopt : std::optional(path.at(at));
}

QString aside(const QString &app)
{
    const QString usual = app + QStringLiteral(".anterior");
    QString name = usual;
    for (int i = 2; QFileInfo(name).exists() || QFileInfo(name).isSymLink(); ++i)
        name = usual + u'-' + QString::number(i);
    return name;
}

QString text(const Paths &paths, qint64 pid, const SwapCommands &commands)
{
    // The copy takes its time and may fail, so it is made under the other name;
    // the bundle's own name then changes hands in one step. A leftover that
    // could not be removed would swallow the copy.
    return QStringLiteral("while kill -0 %1 2>/dev/null; do sleep 0.2; done; %2\n"
                          "rm -rf \"%3\"\n"
                          "[ ! -e \"%3\" ] && %4 \"%5\" \"%3\" && %6 \"%7\" \"%3\" || rm -rf \"%3\"\n"
                          "rm -rf \"%8\"\n"
                          "%9 \"%7/bin/vellumora\" >/dev/null 2>&1")
        .arg(QString::number(pid), commands.guard, paths.aside, commands.copy, paths.staged,
             commands.exchange, paths.app, paths.work, commands.open);
}

} // namespace SwapScript
