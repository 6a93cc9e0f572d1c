#pragma once

#include <QCoroTask>
#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTemporaryFile>

// Runs a script within KWin, once, and keeps what it says. KWin forgets the script when
// it has spoken, or when this goes.
class KWinScript final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.vellumora.Script")

public:
    // The script ends with a call of tell(text), which this class defines.
    explicit KWinScript(const QString &script);
    ~KWinScript() override;

    // Returns what the script has told; empty until then.
    [[nodiscard]] const QString &told() const { return m_told; }

    // Called by the script over the bus.
    Q_INVOKABLE void tell(const QString &text);

private:
    QCoro::Task<void> run();
    void unload();

    QDBusConnection m_bus;
    const QString m_name; // nobody can guess it, so nobody else speaks for the script
    QTemporaryFile m_file;
    QString m_told;
    bool m_loaded = false;
};
