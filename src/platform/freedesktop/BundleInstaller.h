#pragma once

#include "platform/UpdateInstaller.h"
#include "platform/freedesktop/Descriptor.h"

// Installs bundles that are plain folders, from images that are tar archives in any
// compression that tar knows.
class BundleInstaller final : public UpdateInstaller {
public:
    // An image may unpack to this many bytes at most.
    static constexpr qint64 unpackedLimit = 2'147'483'648;

    // Takes the program whose bundle is updated: the running one, unless another
    // path is given.
    explicit BundleInstaller(QString program = {}, qint64 limit = unpackedLimit);

    std::optional<QString> bundle() const override;
    bool isManaged() const override;
    bool canReplace(const QString &bundle) const override;
    QString temporaryFolder() const override;
    SwapCommands commands(const QString &bundle) const override;
    bool claim(const QString &bundle) override;
    void release() override;
    QCoro::Task<void> sweep(QString bundle, QStringList paths) override;
    QCoro::Task<Problem> rehearse(QString bundle, qint64 archive) override;
    QCoro::Task<Problem> stage(QString image, QString mount, QString staged) override;
    QCoro::Task<Problem> tryOut(QString staged, QString version, QString folder) override;
    Problem start(const QString &script, const QByteArray &bequest) override;
    QByteArray takeBequest() override;

private:
    [[nodiscard]] QString program() const;

    const QString m_program;
    const qint64 m_limit;
    std::optional<Descriptor> m_lock;
};
