#include "platform/wayland/ScreenshotPermission.h"

#include "platform/ProgramId.h"
#include "platform/freedesktop/SessionBus.h"
#include "platform/wayland/BusCall.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QPointer>

#include <chrono>

using namespace std::chrono_literals;

namespace {

const QString service = QStringLiteral("org.freedesktop.impl.portal.PermissionStore");
const QString object = QStringLiteral("/org/freedesktop/impl/portal/PermissionStore");
const QString table = QStringLiteral("screenshot"); // the entry in it has the same name
constexpr auto patience = 30s;                      // it may have to be started

QDBusMessage call(const QString &method)
{
    return QDBusMessage::createMethodCall(service, object, service, method);
}

// The programs that the answer may be about: this one by its desktop entry, and all
// that have been started without one.
bool isAboutUs(const QString &program) { return program.isEmpty() || program == programId(); }

// Whose answer was no.
QStringList refusalsIn(const QVariant &permissions)
{
    QStringList refusals;
    const auto argument = permissions.value<QDBusArgument>();
    if (argument.currentSignature() != u"a{sas}")
        return refusals;
    argument.beginMap();
    while (!argument.atEnd()) {
        QString program;
        QStringList answer;
        argument.beginMapEntry();
        argument >> program >> answer;
        argument.endMapEntry();
        if (isAboutUs(program) && answer == QStringList{QStringLiteral("no")})
            refusals.append(program);
    }
    argument.endMap();
    return refusals;
}

} // namespace

ScreenshotPermission::ScreenshotPermission()
{
    if (!SessionBus::present())
        return;
    QDBusConnection::sessionBus().connect(QString(), object, service, QStringLiteral("Changed"), this,
                                          SLOT(changed(QDBusMessage)));
    lookForKWin();
    lookUp();
}

void ScreenshotPermission::forget()
{
    for (const QString &program : m_refusals) {
        auto message = call(QStringLiteral("DeletePermission"));
        message << table << table << program;
        QDBusConnection::sessionBus().asyncCall(message);
    }
    m_refusals.clear();
}

QCoro::Task<void> ScreenshotPermission::lookUp()
{
    const QPointer<ScreenshotPermission> alive(this);
    auto message = call(QStringLiteral("Lookup"));
    message << table << table;
    const QDBusMessage reply = co_await BusCall::ask(QDBusConnection::sessionBus(), message, patience);
    if (alive && reply.type() == QDBusMessage::ReplyMessage)
        m_refusals = refusalsIn(reply.arguments().value(0));
}

QCoro::Task<void> ScreenshotPermission::lookForKWin()
{
    const QPointer<ScreenshotPermission> alive(this);
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    auto message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                                  QStringLiteral("NameHasOwner"));
    message << QStringLiteral("org.kde.KWin");
    const QDBusMessage reply = co_await BusCall::ask(QDBusConnection::sessionBus(), message, patience);
    if (alive)
        m_kwin = reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toBool();
}

// Carries table, entry, whether it was deleted, its data and the permissions.
void ScreenshotPermission::changed(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() < 5 || arguments[0] != table || arguments[1] != table)
        return;
    m_refusals = arguments[2].toBool() ? QStringList() : refusalsIn(arguments[4]);
}
