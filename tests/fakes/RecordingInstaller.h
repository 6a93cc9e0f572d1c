#pragma once

#include "platform/freedesktop/BundleInstaller.h"

// The real one, except that the script which waits for this process to end is
// only kept.
class RecordingInstaller final : public UpdateInstaller {
public:
    explicit RecordingInstaller(const QString &program) : m_real(program) {}

    std::optional<QString> bundle() const override { return m_real.bundle(); }
    bool canReplace(const QString &bundle) const override { return m_real.canReplace(bundle); }
    SwapCommands commands(const QString &bundle) const override { return m_real.commands(bundle); }
    QCoro::Task<std::optional<QString>> stage(QString image, QString mount, QString staged) override
    {
        return m_real.stage(image, mount, staged);
    }
    std::optional<QString> start(const QString &text) override
    {
        script = text;
        return std::nullopt;
    }

    QString script;

private:
    BundleInstaller m_real;
};
