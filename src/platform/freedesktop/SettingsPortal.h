#pragma once

#include <QDBusMessage>
#include <QDBusVariant>
#include <QHash>
#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

// Reads the desktop's look-and-feel settings over the session bus, without waiting,
// and keeps them up to date. Until the desktop answers, nothing is known.
class SettingsPortal final : public QObject {
    Q_OBJECT

public:
    SettingsPortal();

    // Returns whether the user wants reduced motion; false while unknown.
    [[nodiscard]] bool reducesMotion() const;
    // Returns whether the desktop prefers dark colours; absent when it states no
    // preference.
    [[nodiscard]] std::optional<bool> prefersDark() const;

signals:
    void changed();

private slots:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask(const QString &group, const QString &key);
    void take(const QString &group, const QString &key, const QVariant &value);

    QHash<QString, QVariant> m_values; // by "group key"
};
