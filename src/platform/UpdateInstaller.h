#pragma once

#include <QCoroTask>
#include <QString>

#include <optional>

// The commands of the shell that a swap is made of. Paths follow them in double
// quotes.
struct SwapCommands {
    QString copy;     // a folder, and the path that its copy gets
    QString exchange; // two folders, which change names at one stroke
    QString open;     // a program; does not wait for it
};

// Replaces the bundle that the program runs from: a folder whose name ends with
// ".app" and that holds "bin/vellumora".
class UpdateInstaller {
public:
    virtual ~UpdateInstaller() = default;

    // The path of the running bundle; absent when the program does not run from one.
    [[nodiscard]] virtual std::optional<QString> bundle() const = 0;
    // Whether the user may put another folder in the place of this one.
    [[nodiscard]] virtual bool canReplace(const QString &bundle) const = 0;
    [[nodiscard]] virtual SwapCommands commands(const QString &bundle) const = 0;

    // Unpacks the image into the folder mount, which it makes, copies
    // "Vellumora.app" from its root to staged, and removes mount again whatever
    // happened. Absent when that worked, else what went wrong. An image with
    // anything that does not stay inside the bundle is refused.
    [[nodiscard]] virtual QCoro::Task<std::optional<QString>> stage(QString image, QString mount,
                                                                    QString staged)
        = 0;

    // Starts a script of the shell that outlives this program. Absent when it
    // runs, else what went wrong.
    [[nodiscard]] virtual std::optional<QString> start(const QString &script) = 0;
};
