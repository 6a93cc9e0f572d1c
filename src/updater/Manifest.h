#pragma once

#include "l10n/L10n.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

// What the website offers.
struct Manifest {
    struct Item {
        QString url;
        QString sha256; // 64 hexadecimal digits of either case
        // The processor that it runs on, as Qt names them ("x86_64", "arm64"),
        // and the bytes of the download; absent when the manifest does not say.
        std::optional<QString> arch = std::nullopt;
        std::optional<qint64> size = std::nullopt;
    };

    QString version;
    QHash<QString, QString> novedades; // release notes by language code
    Item mac;
    std::optional<Item> linux = std::nullopt;

    // Absent when the bytes are not JSON of this form. Keys that mean nothing
    // are passed over.
    [[nodiscard]] static std::optional<Manifest> decode(const QByteArray &json);

    // The download for this platform.
    [[nodiscard]] const Item &item() const { return linux ? *linux : mac; }

    // In the language, else in English.
    [[nodiscard]] std::optional<QString> notas(Lang lang) const;
};
