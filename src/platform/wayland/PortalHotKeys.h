#pragma once

#include "platform/HotKeyService.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>

class KeyboardLayout;

// Proposes the shortcut to the desktop's portal, which lets the user decide. Whether
// there is such a portal is found out without waiting.
class PortalHotKeys final : public QObject, public HotKeyService {
    Q_OBJECT

public:
    // The layout, which may be absent, has to outlive it.
    explicit PortalHotKeys(const KeyboardLayout *layout);
    ~PortalHotKeys() override;

    // False for as long as no portal is known. The first shortcut asked for until
    // then is proposed when there turns out to be one.
    bool registerShortcut(const Shortcut &shortcut) override;
    void unregisterShortcut() override;
    Binding binding() const override { return m_there ? Binding::desktop : Binding::nobody; }
    QString boundKeys() const override { return m_boundKeys; }

private slots:
    void activated(const QDBusMessage &message);
    void shortcutsChanged(const QDBusMessage &message);

private:
    [[nodiscard]] bool isOurs(const QDBusMessage &message) const;
    QCoro::Task<void> look();
    QCoro::Task<void> propose(QString trigger);
    void listen();
    void closeSession();
    void tell(const QString &boundKeys);

    const KeyboardLayout *m_layout;
    QDBusConnection m_bus;
    bool m_there = false;
    std::optional<Shortcut> m_wanted;
    QString m_session; // empty while nothing is bound
    QString m_boundKeys;
};
