#pragma once

#include "platform/UpdateInstaller.h"

// Bundles that are plain folders, images that are tar archives of any packing
// that tar knows.
class BundleInstaller final : public UpdateInstaller {
public:
    // The running program, unless another path is given.
    explicit BundleInstaller(QString program = {});

    std::optional<QString> bundle() const override;
    bool canReplace(const QString &bundle) const override;
    SwapCommands commands(const QString &bundle) const override;
    QCoro::Task<std::optional<QString>> stage(QString image, QString mount, QString staged) override;
    std::optional<QString> start(const QString &script) override;

private:
    const QString m_program;
};
