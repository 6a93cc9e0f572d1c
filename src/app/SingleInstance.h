#pragma once

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

#include <functional>

// Lets only one Vellumora run on a session bus. A second start hands its wish
// to the first one. Without a bus every start is the first.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Wish { settings, capture };

    // True when this process is the first. Waits for the bus, not for a reply
    // of the other process.
    [[nodiscard]] bool claim();

    // Asks the process that was first; false when it does not answer.
    [[nodiscard]] bool passOn(Wish wish) const;

    // Called on the main thread when another start passes on its wish.
    std::function<void(Wish)> onWish;
};

// What the bus sees of it: the interface that desktops start applications with.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance &instance);

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the bus's own names.
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    void grant(SingleInstance::Wish wish);

    SingleInstance &m_instance;
};
