#include "platform/wayland/KWinScript.h"

#include "platform/wayland/BusCall.h"

#include <QPointer>
#include <QStandardPaths>
#include <QUuid>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 5s;

const QString interface = QStringLiteral("org.vellumora.Script");

QDBusMessage callOf(const QString &path, const QString &ofInterface, const QString &method)
{
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.kde.KWin"), path, ofInterface, method);
    call.setAutoStartService(false);
    return call;
}

QDBusMessage callOfScripting(const QString &method)
{
    return callOf(QStringLiteral("/Scripting"), QStringLiteral("org.kde.kwin.Scripting"), method);
}

} // namespace

KWinScript::KWinScript(const QString &script)
    : m_bus(QDBusConnection::sessionBus())
    , m_name(QStringLiteral("vellumora_") + QUuid::createUuid().toString(QUuid::Id128))
    , m_file(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
             + QStringLiteral("/vellumora-XXXXXX.js"))
{
    const QString path = QLatin1Char('/') + m_name;
    const QString tell = QStringLiteral("function tell(text) { callDBus('%1', '%2', '%3', 'tell', text); }\n")
                             .arg(m_bus.baseService(), path, interface);
    const QByteArray text = (tell + script).toUtf8();
    const bool ready = m_file.open() && m_file.write(text) == text.size() && m_file.flush()
                       && m_bus.registerObject(path, this, QDBusConnection::ExportAllInvokables);
    if (ready)
        run();
}

KWinScript::~KWinScript()
{
    m_bus.unregisterObject(QLatin1Char('/') + m_name);
    unload();
}

QCoro::Task<void> KWinScript::run()
{
    const QPointer<KWinScript> alive(this);
    QDBusMessage load = callOfScripting(QStringLiteral("loadScript"));
    load << m_file.fileName() << m_name;
    m_loaded = true;
    auto asked = BusCall::ask(m_bus, load, patience);
    const QDBusMessage reply = co_await asked;
    if (!alive || reply.type() != QDBusMessage::ReplyMessage)
        co_return;
    const QString number = QString::number(reply.arguments().value(0).toInt());
    // KWin 5 has it in the one place, KWin 6 in the other.
    for (const QString &path : {QLatin1Char('/') + number, QStringLiteral("/Scripting/Script") + number})
        (void)m_bus.send(callOf(path, QStringLiteral("org.kde.kwin.Script"), QStringLiteral("run")));
}

void KWinScript::tell(const QString &text)
{
    m_told = text;
    unload();
}

void KWinScript::unload()
{
    if (!std::exchange(m_loaded, false))
        return;
    QDBusMessage call = callOfScripting(QStringLiteral("unloadScript"));
    call << m_name;
    (void)m_bus.send(call);
    m_file.remove();
}
