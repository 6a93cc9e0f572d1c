#pragma once

#include "platform/UpdateInstaller.h"
#include "updater/AlertBox.h"
#include "updater/Manifest.h"
#include "updater/UpdateMark.h"

#include <QByteArray>
#include <QCoroTask>
#include <QDeadlineTimer>
#include <QObject>
#include <QTemporaryFile>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <variant>

class Desktop;
class Download;
class ProgressWindow;

// Looks for newer versions on the website and replaces the running one with them.
// Only what the update key has signed is trusted.
class Updater final : public QObject {
    Q_OBJECT

public:
    enum class Asked { byUser, byItself };

    // Takes the installer and the desktop, which must outlive the updater, and the
    // key as a PEM block.
    Updater(UpdateInstaller &installer, Desktop &desktop, QByteArray publicKey);
    ~Updater() override;

    // Finishes the last update: takes its bequest, removes what it has left behind,
    // and tells the user once if the program that now runs is not the version it
    // installed. Must be called once the program is up.
    void settle();

    // Checks for a newer version. Only one check runs at a time, from the first
    // request to the answer of its last alert. The user is told every outcome of a
    // check of his own, otherwise only of a newer version. Where a package manager
    // updates the program there are none but the user's own, and a newer version is
    // told about but not installed.
    void check(Asked asked);

    // Returns whether something is going on that an alert would disturb or that
    // would be lost if the program ended.
    std::function<bool()> busy;
    // Tells the updater that a capture is over. Alerts that waited for it appear
    // after a pause, in which the user can use what he has captured, or at once
    // when he asks for a check.
    void captureEnded();

    struct Pauses {
        std::chrono::milliseconds afterCapture = std::chrono::seconds(10);
        // While a release is in progress, the server may hold the new manifest with
        // the old signature.
        std::chrono::milliseconds beforeSecondTry = std::chrono::seconds(1);
    };
    Pauses pauses;

    // Ends the program at once, without asking.
    std::function<void()> terminate;

    [[nodiscard]] static QString current();
    [[nodiscard]] static bool isNewer(QStringView a, QStringView than);
    // Returns the address in the user defaults, otherwise the website's.
    [[nodiscard]] static QUrl manifestURL();
    // Returns the address of the signature: that of the manifest with the extension
    // "sig".
    [[nodiscard]] static QUrl signatureURL(const QUrl &manifest);

private:
    struct NotSigned {};
    struct Unreachable {
        QString description;
    };
    using Found = std::variant<Manifest, NotSigned, Unreachable>;
    using Problem = UpdateInstaller::Problem;

    Q_SIGNAL void woken();

    QCoro::Task<void> runSettling();
    QCoro::Task<void> runCheck(Asked asked);
    QCoro::Task<Found> fetchManifest();
    QCoro::Task<Found> fetchOnce();
    QCoro::Task<void> conclude(Found found, Asked asked);
    QCoro::Task<void> ask(Manifest manifest);
    QCoro::Task<void> pointToSystem(Manifest manifest);
    QCoro::Task<void> install(Manifest manifest);
    QCoro::Task<Problem> prepare(Manifest::Item item);
    QCoro::Task<Problem> download(Manifest::Item item);
    QCoro::Task<Problem> replaceBundle(QString version);
    QCoro::Task<Problem> makeStaged(QString work, QString version);
    QCoro::Task<void> fail(QString message);
    QCoro::Task<bool> alert(UpdateAlerts::Alert alert);
    QCoro::Task<void> untilCalm();
    void wake();

    [[nodiscard]] Problem obstacle(const Manifest::Item &item) const;
    [[nodiscard]] Problem handOver(const QString &work);
    void showProgress(const QString &version);

    UpdateInstaller &m_installer;
    Desktop &m_desktop;
    const QByteArray m_publicKey;
    bool m_checking = false; // true while settling too
    bool m_asleep = false;   // waiting until it is calm
    QDeadlineTimer m_calmFrom;
    AlertBox m_alerts;
    UpdateMark m_mark; // describes the update in progress
    std::optional<QTemporaryFile> m_archive;
    std::unique_ptr<Download> m_download;
    std::unique_ptr<ProgressWindow> m_progress;
};
