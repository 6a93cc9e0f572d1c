#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// Describes a program of the system with its arguments.
struct SystemTool {
    QString program;
    QStringList arguments;

    // The listener returns false to end the program.
    using Listener = std::function<bool(const QByteArray &line)>;

    // Runs the program and waits for its end, for so many milliseconds at most, or
    // without limit if negative. Returns nothing when it exits with 0, otherwise
    // what went wrong. The listener is given every line that the program prints.
    [[nodiscard]] std::optional<QString> run(const Listener &listener = {}, int milliseconds = -1) const;
};
