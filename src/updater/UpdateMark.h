#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Describes an update in progress. It is kept in the user defaults, so that the
// next start can tell how the update ended.
struct UpdateMark {
    QString bundle;
    QString version;            // the version that is being installed
    bool swapping = false;      // the script has taken over
    QStringList leftovers = {}; // the update's own paths outside the bundle's folder

    void store() const;
    // Returns the mark that an update of that bundle has left; absent when there is
    // none.
    [[nodiscard]] static std::optional<UpdateMark> of(const QString &bundle);
    [[nodiscard]] static QStringList leftoversOf(const QString &bundle);
    static void clear();

    // Records that a version could not be put in place, so that it is not offered
    // again that day.
    static void putOff(const QString &version);
    [[nodiscard]] static bool isPutOff(const QString &version);
};
