#pragma once

#include "platform/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

class QDBusMessage;

// Receives wishes over the session bus as well, where desktops look for running
// applications, and start them when they do not run: what a wish waited for on the
// bus is that the program's name appears there. Another SingleInstance decides which
// process is the first. Where two displays share a bus, wishes on the bus go to the
// instance that came first, and to the other one after it.
class BusInstance final : public QObject, public SingleInstance {
    Q_OBJECT

public:
    explicit BusInstance(std::unique_ptr<SingleInstance> others);

    Standing claim(Wish wish) override { return m_others->claim(wish); }
    void serve() override;

    // Grants the wish from the event loop, so that the caller on the bus gets its
    // reply first; granting may take long.
    void grantSoon(Wish wish);

private:
    void grant(Wish wish) const;

    std::unique_ptr<SingleInstance> m_others;
};

// Exports a BusInstance on the bus, by the interface through which desktops start
// applications.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(BusInstance &instance);

    // The bus chose these names.
    // NOLINTBEGIN(readability-identifier-naming, readability-redundant-access-specifiers)
public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    // Answers with an error to an action that the desktop entry does not have.
    void ActivateAction(const QString &name, const QVariantList &parameter, const QVariantMap &platformData,
                        const QDBusMessage &message);
    // NOLINTEND(readability-identifier-naming, readability-redundant-access-specifiers)

private:
    BusInstance &m_instance;
};
