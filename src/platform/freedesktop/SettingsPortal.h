#pragma once

#include <QDBusMessage>
#include <QDBusVariant>
#include <QHash>
#include <QObject>
#include <QString>
#include <QVariant>

#include <optional>

// The desktop's look-and-feel settings, read over the session bus without
// waiting and kept up to date. Until the desktop answers, nothing is known.
class SettingsPortal final : public QObject {
    Q_OBJECT

public:
    SettingsPortal();

    // False also while unknown.
    [[nodiscard]] bool reducesMotion() const;
    // Absent when the desktop states no preference.
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
