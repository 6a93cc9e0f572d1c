#pragma once

#include "platform/freedesktop/BundleInstaller.h"

// Installs for real, but only records the script that waits for this process to
// end.
class RecordingInstaller final : public UpdateInstaller {
public:
    explicit RecordingInstaller(const QString &program) : m_real(program) {}

    std::optional<QString> bundle() const override { return m_real.bundle(); }
    bool isManaged() const override { return m_real.isManaged(); }
    bool canReplace(const QString &bundle) const override { return m_real.canReplace(bundle); }
    QString temporaryFolder() const override { return m_real.temporaryFolder(); }
    SwapCommands commands(const QString &bundle) const override { return m_real.commands(bundle); }
    bool claim(const QString &bundle) override { return m_real.claim(bundle); }
    void release() override { m_real.release(); }
    QCoro::Task<void> sweep(QString bundle, QStringList paths) override
    {
        return m_real.sweep(bundle, paths);
    }
    QCoro::Task<Problem> rehearse(QString bundle, qint64 archive) override
    {
        return m_real.rehearse(bundle, archive);
    }
    QCoro::Task<Problem> stage(QString image, QString mount, QString staged) override
    {
        return m_real.stage(image, mount, staged);
    }
    QCoro::Task<Problem> tryOut(QString staged, QString version, QString folder) override
    {
        return m_real.tryOut(staged, version, folder);
    }
    Problem start(const QString &text, const QByteArray &) override
    {
        script = text;
        return std::nullopt;
    }
    QByteArray takeBequest() override { return {}; }

    QString script;

private:
    BundleInstaller m_real;
};
