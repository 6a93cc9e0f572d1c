#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// What an update leaves in the user defaults while it goes on, so that the next
// start can tell how it ended.
struct UpdateMark {
    QString bundle;
    QString version;            // that is being installed
    bool swapping = false;      // the script has taken over
    QStringList leftovers = {}; // paths of its own outside the bundle's folder

    void store() const;
    // Absent when no update of that bundle has left one.
    [[nodiscard]] static std::optional<UpdateMark> of(const QString &bundle);
    [[nodiscard]] static QStringList leftoversOf(const QString &bundle);
    static void clear();

    // A version that could not be put in place is not offered again that day.
    static void putOff(const QString &version);
    [[nodiscard]] static bool isPutOff(const QString &version);
};
