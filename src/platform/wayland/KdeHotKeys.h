#pragma once

#include "platform/HotKeyService.h"

#include <QDBusMessage>
#include <QObject>

#include <optional>

class KeyboardLayout;

// KDE's own service for shortcuts, which says truly when a combination is taken. It is
// asked and waited for, but not for long.
class KdeHotKeys final : public QObject, public HotKeyService {
    Q_OBJECT

public:
    // Whether the session has it.
    [[nodiscard]] static bool present();

    // The layout, which may be absent, has to outlive it.
    explicit KdeHotKeys(const KeyboardLayout *layout);
    ~KdeHotKeys() override;

    bool registerShortcut(const Shortcut &shortcut) override;
    void unregisterShortcut() override;

private slots:
    void pressed(const QString &component, const QString &action);

private:
    [[nodiscard]] bool set(int key);

    const KeyboardLayout *m_layout;
    std::optional<int> m_key; // what is registered, as Qt names it
};
