#pragma once

#include "platform/UpdateInstaller.h"
#include "updater/Manifest.h"
#include "updater/UpdateAlerts.h"

#include <QByteArray>
#include <QCoroTask>
#include <QObject>
#include <QTemporaryFile>
#include <QUrl>

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

    // One check at a time, from the first request to the answer of its last
    // alert. The user is told every outcome when he has asked himself, else only
    // of a newer version.
    void check(Asked asked);

    // Whether something is going on that an alert would disturb or that the end
    // of the program would lose; and the news that a capture is over, so that
    // what has waited for it comes at once.
    std::function<bool()> busy;
    Q_SIGNAL void captureEnded();

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

    QCoro::Task<void> runCheck(Asked asked);
    QCoro::Task<Found> fetchManifest();
    QCoro::Task<void> conclude(Found found, Asked asked);
    QCoro::Task<void> ask(Manifest manifest);
    QCoro::Task<void> install(Manifest manifest);
    QCoro::Task<std::optional<QString>> download(Manifest::Item item);
    QCoro::Task<std::optional<QString>> replaceBundle(QString version);
    QCoro::Task<void> fail(QString message);
    QCoro::Task<bool> alert(UpdateAlerts::Alert alert);
    QCoro::Task<void> untilIdle();

    [[nodiscard]] std::optional<QString> obstacle() const;

    UpdateInstaller &m_installer;
    Desktop &m_desktop;
    const QByteArray m_publicKey;
    bool m_checking = false;
    std::optional<QTemporaryFile> m_archive;
    std::unique_ptr<Download> m_download;
    std::unique_ptr<ProgressWindow> m_progress;
};
