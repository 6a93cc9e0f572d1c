#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// A program of the system with its arguments.
struct SystemTool {
    QString program;
    QStringList arguments;

    // False ends the tool.
    using Listener = std::function<bool(const QByteArray &line)>;

    // Waits for its end. Absent when it exits with 0, else what went wrong. The
    // listener is given every line that it prints.
    [[nodiscard]] std::optional<QString> run(const Listener &listener = {}, int milliseconds = -1) const;
};
