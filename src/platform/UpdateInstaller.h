#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <optional>

// Holds the shell commands that a swap is made of. They are followed by paths in
// double quotes.
struct SwapCommands {
    QString guard;    // locks out all other swaps of the bundle, or ends the script
    QString copy;     // takes a folder and the path of its copy
    QString exchange; // takes two folders, which exchange their names in one step
    QString open;     // gives up the guard and starts a program without waiting for it
};

// Replaces the bundle that the program runs from: a folder whose name ends with
// ".app" and that holds "bin/vellumora". A function that returns a Problem says
// what went wrong; an absent problem means success.
class UpdateInstaller {
public:
    virtual ~UpdateInstaller() = default;

    using Problem = std::optional<QString>;

    // Returns the path of the running bundle, wherever it has been moved to by now;
    // absent when the program does not run from a bundle.
    [[nodiscard]] virtual std::optional<QString> bundle() const = 0;
    // Returns whether the system's package manager has installed the running program;
    // then it alone replaces it.
    [[nodiscard]] virtual bool isManaged() const = 0;
    // Returns whether the user may replace this folder by another.
    [[nodiscard]] virtual bool canReplace(const QString &bundle) const = 0;
    // Returns the absolute path of the user's folder for temporary files, from
    // which programs may be run.
    [[nodiscard]] virtual QString temporaryFolder() const = 0;
    [[nodiscard]] virtual SwapCommands commands(const QString &bundle) const = 0;

    // Locks out every other update of the bundle, whoever starts it, until
    // release() has been called and any script started in the meantime has ended.
    // Returns false when another update is going on.
    [[nodiscard]] virtual bool claim(const QString &bundle) = 0;
    virtual void release() = 0;

    // Removes what unfinished updates have left beside the bundle, and these paths,
    // even if file permissions stand in the way. What cannot be removed stays.
    [[nodiscard]] virtual QCoro::Task<void> sweep(QString bundle, QStringList paths) = 0;
    // Checks whether the swap can work: its tools, the exchange itself on two small
    // folders, and the room for an archive of that many bytes and what is unpacked
    // from it.
    [[nodiscard]] virtual QCoro::Task<Problem> rehearse(QString bundle, qint64 archive) = 0;

    // Unpacks the image into the folder mount, which it creates, copies
    // "Vellumora.app" from its root to staged, and removes mount again in any case.
    // An image is refused if anything in it reaches outside the bundle, or if it is
    // larger than any bundle can be.
    [[nodiscard]] virtual QCoro::Task<Problem> stage(QString image, QString mount, QString staged) = 0;
    // Starts the staged bundle's program to ask for its version, which must be this
    // one, and checks that the folder it is meant for has room for the bundle.
    [[nodiscard]] virtual QCoro::Task<Problem> tryOut(QString staged, QString version, QString folder) = 0;

    // Starts a shell script that outlives this program. The program that the script
    // opens is given the bequest.
    [[nodiscard]] virtual Problem start(const QString &script, const QByteArray &bequest) = 0;
    // Returns the bequest of the program that ran before this one; empty on the
    // second call.
    [[nodiscard]] virtual QByteArray takeBequest() = 0;
};
