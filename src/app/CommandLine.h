#pragma once

#include "modes/ScriptCapture.h"

#include <QString>
#include <QStringList>

#include <optional>

// Holds what the program was started for.
struct CommandLine {
    // Names a picture to work on and a folder to write to.
    struct PictureRun {
        QString picture;
        QString folder;
    };

    bool help = false;
    bool version = false;
    bool capture = false;  // "--capturar"
    bool settings = false; // "--ajustes"
    bool quit = false;     // "--salir"

    // Tells whether "--demo", "--prueba-halo" or "--selftest" is present, even
    // without its arguments, or a picture for a script is wanted. There is no hot key
    // and no update check then.
    bool anyMode = false;
    std::optional<PictureRun> demo = std::nullopt;
    std::optional<PictureRun> haloTest = std::nullopt;
    std::optional<QString> selfTest = std::nullopt; // the folder

    // "--capturar" with "--salida", and perhaps "--pantalla" and "--region"
    std::optional<ScriptCapture::Order> script = std::nullopt;

    // A sentence about what is wrong with the flags of a picture for a script; there is
    // no such picture then.
    std::optional<QString> misuse = std::nullopt;
    std::optional<QString> unknown = std::nullopt; // the first unknown argument

    // Parses the arguments, without the program's own name. A mode whose arguments
    // are missing is ignored, together with whatever stands in their place.
    [[nodiscard]] static CommandLine parse(const QStringList &arguments);

    [[nodiscard]] static QString helpText();
};
