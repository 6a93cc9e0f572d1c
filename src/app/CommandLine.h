#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// What the program was started for.
struct CommandLine {
    // A picture to work on and a folder to write to.
    struct PictureRun {
        QString picture;
        QString folder;
    };

    bool help = false;
    bool version = false;
    bool capture = false;  // "--capturar"
    bool settings = false; // "--ajustes"

    // One of "--demo", "--prueba-halo" and "--selftest" is present, with its
    // arguments or without: no hot key and no update check then.
    bool anyMode = false;
    std::optional<PictureRun> demo = std::nullopt;
    std::optional<PictureRun> haloTest = std::nullopt;
    std::optional<QString> selfTest = std::nullopt; // the folder

    std::optional<QString> unknown = std::nullopt; // the first argument that means nothing

    // The arguments without the program's own name. A mode whose arguments are
    // missing is ignored, and so is what stands in their place.
    [[nodiscard]] static CommandLine parse(const QStringList &arguments);

    [[nodiscard]] static QString helpText();
};
