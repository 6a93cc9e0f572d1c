#pragma once

#include <QDir>
#include <QTemporaryDir>

// Provides a home folder of the test's own, with a place for the log. Must be made
// before anything asks for the real one.
class TempHome {
public:
    TempHome()
    {
        qputenv("HOME", m_folder.path().toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", (m_folder.path() + "/.config").toLocal8Bit());
        QDir(m_folder.path()).mkpath("Library/Logs");
    }

    [[nodiscard]] QString path(const QString &below = {}) const { return m_folder.filePath(below); }

    [[nodiscard]] QByteArray read(const QString &below) const
    {
        QFile file(path(below));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QByteArray log() const { return read("Library/Logs/Vellumora.log"); }

private:
    QTemporaryDir m_folder;
};
