#include "updater/Updater.h"

#include "base/Defaults.h"
#include "l10n/L10n.h"
#include "platform/Desktop.h"
#include "updater/ClipboardBequest.h"
#include "updater/Download.h"
#include "updater/ProgressWindow.h"
#include "updater/Signature.h"
#include "updater/UpdateWords.h"
#include "updater/Version.h"

#include <QCoroSignal>
#include <QCoroTimer>
#include <QPointer>

#include <utility>

using namespace std::chrono_literals;
using UpdateWords::couldNot;
using UpdateWords::log;

namespace {

constexpr Download::Limits limits{.whole = 1'048'576}; // of the manifest and the signature

// Not everything that keeps the program busy says when it is over.
constexpr auto askAgainAfter = 1s;

bool unattended() { return qEnvironmentVariable("VELLUMORA_PRUEBA_ACTUALIZAR") == u"1"; }

} // namespace

Updater::Updater(UpdateInstaller &installer, Desktop &desktop, QByteArray publicKey)
    : m_installer(installer)
    , m_desktop(desktop)
    , m_publicKey(std::move(publicKey))
{}

Updater::~Updater() = default;

QString Updater::current() { return Version::current(); }

bool Updater::isNewer(QStringView a, QStringView than) { return Version::isNewer(a, than); }

QUrl Updater::manifestURL()
{
    const QVariant stored = Defaults::value(Defaults::updateAddressKey);
    if (stored.isValid())
        return QUrl(stored.toString(), QUrl::StrictMode);
    return L10n::web(Lang::es).resolved(QUrl(u"actualizacion.json"_qs));
}

QUrl Updater::signatureURL(const QUrl &manifest)
{
    QString path = manifest.path(QUrl::FullyEncoded);
    const auto dot = path.lastIndexOf(u'.');
    if (dot > path.lastIndexOf(u'/'))
        path.truncate(dot);
    QUrl signature = manifest;
    signature.setPath(path + u".sig"_qs, QUrl::TolerantMode);
    return signature;
}

void Updater::settle()
{
    ClipboardBequest::offer(m_installer.takeBequest(), m_desktop.clipboard());
    m_checking = true;
    runSettling();
}

QCoro::Task<void> Updater::runSettling()
{
    const QPointer<Updater> alive(this);
    const auto bundle = m_installer.bundle();
    // Whoever has the claim is not done yet, so there is nothing to judge.
    if (bundle && m_installer.claim(*bundle)) {
        const auto mark = UpdateMark::of(*bundle);
        const QStringList leftovers = UpdateMark::leftoversOf(*bundle);
        co_await m_installer.sweep(*bundle, leftovers);
        if (!alive)
            co_return;
        m_installer.release();
        if (mark)
            UpdateMark::clear();
        if (mark && mark->swapping && isNewer(mark->version, current())) {
            UpdateMark::putOff(mark->version);
            co_await fail(couldNot(u"Vellumora "_qs + mark->version));
        }
    }
    if (alive)
        m_checking = false;
}

void Updater::check(Asked asked)
{
    if (asked == Asked::byItself && m_installer.isManaged())
        return;
    if (asked == Asked::byUser) {
        m_calmFrom = QDeadlineTimer();
        wake();
    }
    if (m_checking && asked == Asked::byUser)
        m_alerts.bringToFront();
    if (m_checking)
        return;
    m_checking = true;
    runCheck(asked);
}

QCoro::Task<void> Updater::runCheck(Asked asked)
{
    const QPointer<Updater> alive(this);
    m_download = std::make_unique<Download>();
    Found found = co_await fetchManifest();
    if (!alive)
        co_return;
    co_await conclude(std::move(found), asked);
    if (!alive)
        co_return;
    // Called from within one of its own signals.
    m_download.release()->deleteLater();
    m_progress.reset();
    m_installer.release();
    m_checking = false;
}

QCoro::Task<Updater::Found> Updater::fetchManifest()
{
    const QPointer<Updater> alive(this);
    Found found = co_await fetchOnce();
    if (!alive || !std::holds_alternative<NotSigned>(found))
        co_return found;
    co_await QCoro::sleepFor(pauses.beforeSecondTry);
    if (alive)
        found = co_await fetchOnce();
    co_return found;
}

QCoro::Task<Updater::Found> Updater::fetchOnce()
{
    const QPointer<Updater> alive(this);
    QByteArray manifest;
    QByteArray signature;
    const auto into = [](QByteArray &bytes) {
        return [&bytes](const QByteArray &piece) {
            bytes += piece;
            return true;
        };
    };
    const QUrl address = manifestURL();
    auto problem = co_await m_download->receive(address, limits, into(manifest));
    if (alive && !problem)
        problem = co_await m_download->receive(signatureURL(address), limits, into(signature));
    if (problem || !alive)
        co_return Unreachable{problem.value_or(QString())};
    if (!Signature::isValid(manifest, signature, m_publicKey))
        co_return NotSigned{};
    const auto decoded = Manifest::decode(manifest);
    if (!decoded)
        co_return Unreachable{u"JSON"_qs};
    co_return *decoded;
}

QCoro::Task<void> Updater::conclude(Found found, Asked asked)
{
    std::optional<UpdateAlerts::Alert> news;
    if (const auto *manifest = std::get_if<Manifest>(&found)) {
        log(u"web %1, instalada %2"_qs.arg(manifest->version, current()));
        if (isNewer(manifest->version, current())) {
            if (asked == Asked::byItself && UpdateMark::isPutOff(manifest->version))
                log(u"%1 aplazada hasta mañana"_qs.arg(manifest->version));
            else if (m_installer.isManaged())
                co_await pointToSystem(*manifest);
            else
                co_await ask(*manifest);
            co_return;
        }
        news = UpdateAlerts::upToDate(current());
    } else if (const auto *unreachable = std::get_if<Unreachable>(&found)) {
        log(u"sin conexion o error (%1)"_qs.arg(unreachable->description));
        news = UpdateAlerts::unreachable();
    } else {
        log(u"firma NO valida, se ignora"_qs);
        news = UpdateAlerts::notSigned();
    }
    if (asked == Asked::byUser)
        co_await alert(*news);
}

QCoro::Task<void> Updater::ask(Manifest manifest)
{
    const QPointer<Updater> alive(this);
    const bool agreed
        = unattended()
          || co_await alert(UpdateAlerts::offer(manifest.version, manifest.notas(L10n::lang()), current()));
    if (alive && agreed)
        co_await install(std::move(manifest));
}

QCoro::Task<void> Updater::pointToSystem(Manifest manifest)
{
    const QPointer<Updater> alive(this);
    auto news = UpdateAlerts::managed(manifest.version, manifest.notas(L10n::lang()), current());
    const bool openWeb = co_await alert(std::move(news));
    if (alive && openWeb)
        m_desktop.openWeb(L10n::web());
}

QCoro::Task<void> Updater::fail(QString message)
{
    const QPointer<Updater> alive(this);
    m_progress.reset();
    m_archive.reset();
    m_installer.release();
    message = UpdateWords::visible(message);
    log(u"fallo (%1)"_qs.arg(message));
    const bool openWeb = co_await alert(UpdateAlerts::failed(message));
    if (alive && openWeb)
        m_desktop.openWeb(L10n::web());
}

QCoro::Task<bool> Updater::alert(UpdateAlerts::Alert alert)
{
    const QPointer<Updater> alive(this);
    co_await untilCalm();
    if (!alive)
        co_return false;
    co_return co_await m_alerts.ask(std::move(alert));
}

void Updater::captureEnded()
{
    m_calmFrom = QDeadlineTimer(pauses.afterCapture);
    m_alerts.letReturnPass(pauses.afterCapture);
    wake();
}

// Once for each wait: the second time the waiting coroutine may be gone.
void Updater::wake()
{
    if (std::exchange(m_asleep, false))
        emit woken();
}

QCoro::Task<void> Updater::untilCalm()
{
    const QPointer<Updater> alive(this);
    const auto isBusy = [this] { return busy && busy(); };
    while (alive && (isBusy() || !m_calmFrom.hasExpired())) {
        const std::chrono::milliseconds pause(m_calmFrom.remainingTime());
        m_asleep = true;
        co_await qCoro(this, &Updater::woken, isBusy() ? askAgainAfter : pause);
    }
}
