#pragma once

#include "platform/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

// Hears wishes over the session bus as well, where desktops look for running
// applications. Who is first is for another to say. Where two displays share a
// bus, it speaks to whichever came first, and to the other one after that.
class BusInstance final : public QObject, public SingleInstance {
    Q_OBJECT

public:
    explicit BusInstance(std::unique_ptr<SingleInstance> others);

    Standing claim(Wish wish) override { return m_others->claim(wish); }
    void serve() override;

    // The caller on the bus gets its answer before the wish is granted, which may
    // take long.
    void grantSoon(Wish wish);

private:
    void grant(Wish wish) const;

    std::unique_ptr<SingleInstance> m_others;
};

// What the bus sees of it: the interface that desktops start applications with.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(BusInstance &instance);

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the bus's own names.
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    BusInstance &m_instance;
};
