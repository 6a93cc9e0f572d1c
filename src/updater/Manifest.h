#pragma once

#include "l10n/L10n.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>

// Describes the version that the website offers.
struct Manifest {
    struct Item {
        QString url;
        QString sha256; // 64 hexadecimal digits of either case
        // Architecture that the download runs on, as Qt names it ("x86_64",
        // "arm64"), and the size of the download in bytes; absent when the manifest
        // does not say.
        std::optional<QString> arch = std::nullopt;
        std::optional<qint64> size = std::nullopt;
    };

    QString version;
    QHash<QString, QString> novedades; // release notes by language code
    Item mac;
    std::optional<Item> linux = std::nullopt;

    // Decodes a manifest; absent when the bytes are not JSON of this form. Unknown
    // keys are ignored.
    [[nodiscard]] static std::optional<Manifest> decode(const QByteArray &json);

    // Returns the download for this platform.
    [[nodiscard]] const Item &item() const { return linux ? *linux : mac; }

    // Returns the release notes in the language, otherwise in English.
    [[nodiscard]] std::optional<QString> notas(Lang lang) const;
};
