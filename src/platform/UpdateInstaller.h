#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <optional>

// The commands of the shell that a swap is made of. Paths follow them in double
// quotes.
struct SwapCommands {
    QString guard;    // keeps all other swaps of the bundle out, or ends the script
    QString copy;     // a folder, and the path that its copy gets
    QString exchange; // two folders, which change names at one stroke
    QString open;     // gives the guard up and starts a program; does not wait for it
};

// Replaces the bundle that the program runs from: a folder whose name ends with
// ".app" and that holds "bin/vellumora". Where a question has a problem for an
// answer, that is what went wrong, and its absence means that all is well.
class UpdateInstaller {
public:
    virtual ~UpdateInstaller() = default;

    using Problem = std::optional<QString>;

    // The path of the running bundle, wherever it has been moved to by now;
    // absent when the program does not run from one.
    [[nodiscard]] virtual std::optional<QString> bundle() const = 0;
    // Whether the user may put another folder in the place of this one.
    [[nodiscard]] virtual bool canReplace(const QString &bundle) const = 0;
    // The absolute path of the user's folder for what need not last, where
    // programs may be run.
    [[nodiscard]] virtual QString temporaryFolder() const = 0;
    [[nodiscard]] virtual SwapCommands commands(const QString &bundle) const = 0;

    // Keeps every other update of the bundle out, whoever starts it, until it is
    // released and a script that was started meanwhile has ended. False when
    // another one is going on.
    [[nodiscard]] virtual bool claim(const QString &bundle) = 0;
    virtual void release() = 0;

    // Removes what dead updates have left beside the bundle, and these paths,
    // even where their rights are in the way. What cannot be removed stays.
    [[nodiscard]] virtual QCoro::Task<void> sweep(QString bundle, QStringList paths) = 0;
    // Tries whether the swap can work: its tools, the exchange itself on two
    // small folders, and the room for an archive of that many bytes and what is
    // made of it.
    [[nodiscard]] virtual QCoro::Task<Problem> rehearse(QString bundle, qint64 archive) = 0;

    // Unpacks the image into the folder mount, which it makes, copies
    // "Vellumora.app" from its root to staged, and removes mount again whatever
    // happened. An image with anything that does not stay inside the bundle, or
    // larger than any bundle can be, is refused.
    [[nodiscard]] virtual QCoro::Task<Problem> stage(QString image, QString mount, QString staged) = 0;
    // Starts the staged bundle's program to ask for its version, which must be
    // this one, and looks for the room for the bundle in the folder that it is
    // meant for.
    [[nodiscard]] virtual QCoro::Task<Problem> tryOut(QString staged, QString version, QString folder) = 0;

    // Starts a script of the shell that outlives this program. What it opens is
    // given the bequest.
    [[nodiscard]] virtual Problem start(const QString &script, const QByteArray &bequest) = 0;
    // What the program before this one has left to it; empty the second time.
    [[nodiscard]] virtual QByteArray takeBequest() = 0;
};
