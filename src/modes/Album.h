#pragma once

#include <QDir>
#include <QImage>
#include <QString>

// A folder that pictures are written into. Says the path of each on standard
// output, and on standard error which could not be written.
class Album {
public:
    explicit Album(const QString &folder) : m_folder(folder) {}

    // As PNG, by its name without extension.
    void add(const QString &name, const QImage &picture);

    [[nodiscard]] bool complete() const { return m_complete; }

private:
    QDir m_folder;
    bool m_complete = true;
};
