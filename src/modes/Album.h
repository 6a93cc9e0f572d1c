#pragma once

#include <QDir>
#include <QImage>
#include <QString>

// Writes pictures into a folder. Prints the path of each on standard output, and a
// sentence on standard error for each that could not be written.
class Album {
public:
    explicit Album(const QString &folder) : m_folder(folder) {}

    // Writes the picture as a PNG file. The name is without extension.
    void add(const QString &name, const QImage &picture);

    // Returns whether every picture has been written.
    [[nodiscard]] bool complete() const { return m_complete; }

private:
    QDir m_folder;
    bool m_complete = true;
};
