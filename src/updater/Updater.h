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

// Looks for newer versions on the website and puts them in the place of the
// running one. Nothing is trusted but what the update key has signed.
class Updater final : public QObject {
    Q_OBJECT

public:
    enum class Asked { byUser, byItself };

    // Both services must outlive it. The key is a PEM block.
    Updater(UpdateInstaller &installer, Desktop &desktop, QByteArray publicKey);
    ~Updater() override;

    // Ends what the last update has begun: takes its bequest, removes what it has
    // left behind, and tells the user once when its version is not the one that
    // runs now. To be called when the program has come up.
    void settle();

    // One check at a time, from the first request to the answer of its last
    // alert. The user is told every outcome when he has asked himself, else only
    // of a newer version.
    void check(Asked asked);

    // Whether something is going on that an alert would disturb or that the end
    // of the program would lose.
    std::function<bool()> busy;
    // A capture is over. What has waited for it comes after a while in which the
    // user goes on with what he has captured, or at once if he asks for it.
    void captureEnded();

    struct Pauses {
        std::chrono::milliseconds afterCapture = std::chrono::seconds(10);
        // A release in progress may serve the new manifest with the old signature.
        std::chrono::milliseconds beforeSecondTry = std::chrono::seconds(1);
    };
    Pauses pauses;

    // Ends the program, at once and without a question.
    std::function<void()> terminate;

    [[nodiscard]] static QString current();
    [[nodiscard]] static bool isNewer(QStringView a, QStringView than);
    // The address in the user defaults, else the website's.
    [[nodiscard]] static QUrl manifestURL();
    // The signature's address: the extension of the manifest's becomes "sig".
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
    bool m_checking = false; // or settling
    bool m_asleep = false;   // until it is calm
    QDeadlineTimer m_calmFrom;
    AlertBox m_alerts;
    UpdateMark m_mark; // of the update in progress
    std::optional<QTemporaryFile> m_archive;
    std::unique_ptr<Download> m_download;
    std::unique_ptr<ProgressWindow> m_progress;
};
