#include "updater/Updater.h"

#include "base/Defaults.h"
#include "base/Log.h"
#include "l10n/L10n.h"
#include "platform/Desktop.h"
#include "updater/Download.h"
#include "updater/ProgressWindow.h"
#include "updater/Sha256.h"
#include "updater/Signature.h"
#include "updater/SwapScript.h"
#include "updater/Version.h"

#include <QCoreApplication>
#include <QCoroSignal>
#include <QDir>
#include <QPointer>
#include <QUuid>

using namespace std::chrono_literals;

namespace {

constexpr qint64 mebibyte = 1'048'576;
constexpr Download::Limits manifestLimits{.whole = mebibyte}; // and the signature's
constexpr Download::Limits archiveLimits{.whole = 512 * mebibyte, .stretch = mebibyte / 16};

void log(const QString &message) { Log::write(u"actualizacion: "_qs + message); }

QString couldNot(const QString &why)
{
    return L10n::t(u"No se pudo descargar o instalar (%@).").replace(u"%@"_qs, why);
}

// Not everything that keeps the program busy says when it is over.
constexpr auto askAgainAfter = 1s;

bool unattended() { return qEnvironmentVariable("VELLUMORA_PRUEBA_ACTUALIZAR") == u"1"; }

// Absolute whatever the environment says: the script runs in another folder.
QDir temporaryFolder() { return QDir(QDir::temp().absolutePath()); }

// A folder for the user's eyes only; absent when there is no room for one.
std::optional<QString> makeWorkFolder()
{
    const QDir temporary = temporaryFolder();
    const QString name = u"vellumora-act-"_qs + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    temporary.mkpath(u"."_qs);
    if (!temporary.mkdir(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return std::nullopt;
    return temporary.filePath(name);
}

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

void Updater::check(Asked asked)
{
    if (m_checking && asked == Asked::byUser)
        UpdateAlerts::bringToFront();
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
    m_checking = false;
}

QCoro::Task<Updater::Found> Updater::fetchManifest()
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
    auto problem = co_await m_download->receive(address, manifestLimits, into(manifest));
    if (alive && !problem)
        problem = co_await m_download->receive(signatureURL(address), manifestLimits, into(signature));
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

QCoro::Task<void> Updater::install(Manifest manifest)
{
    const QPointer<Updater> alive(this);
    auto problem = obstacle();
    if (!problem) {
        m_progress = std::make_unique<ProgressWindow>(manifest.version);
        m_progress->present();
        problem = co_await download(manifest.item());
    }
    if (alive && !problem)
        problem = co_await replaceBundle(manifest.version);
    if (alive && problem)
        co_await fail(*problem);
}

std::optional<QString> Updater::obstacle() const
{
    const auto bundle = m_installer.bundle();
    if (!bundle || !m_installer.canReplace(*bundle))
        return L10n::t(u"Vellumora no está en una carpeta donde se pueda escribir.");
    for (const QString &path : {*bundle, temporaryFolder().path()})
        if (!SwapScript::canQuote(path))
            return couldNot(path);
    return std::nullopt;
}

QCoro::Task<std::optional<QString>> Updater::download(Manifest::Item item)
{
    const QPointer<Updater> alive(this);
    m_archive.emplace(temporaryFolder().filePath(u"vellumora-XXXXXX"_qs));
    if (!m_archive->open())
        co_return couldNot(m_archive->errorString());
    Sha256 digest;
    const auto keep = [&](const QByteArray &piece) {
        digest.add(piece);
        return m_archive->write(piece) == piece.size();
    };
    auto problem = co_await m_download->receive(QUrl(item.url, QUrl::StrictMode), archiveLimits, keep);
    if (!alive)
        co_return std::nullopt;
    if (!m_archive->flush() || m_archive->error() != QFile::NoError)
        problem = m_archive->errorString();
    if (problem)
        co_return couldNot(*problem);
    if (digest.hex() != item.sha256.toLower().toUtf8())
        co_return L10n::t(u"La descarga no coincide con la versión firmada.");
    co_return std::nullopt;
}

QCoro::Task<std::optional<QString>> Updater::replaceBundle(QString version)
{
    const QPointer<Updater> alive(this);
    const auto work = makeWorkFolder();
    if (!work)
        co_return couldNot(temporaryFolder().path());
    const QString image = *work + u"/c.dmg"_qs;
    const QString staged = *work + u"/Vellumora.app"_qs;
    if (!m_archive->rename(image))
        co_return couldNot(m_archive->errorString());
    m_archive->setAutoRemove(false);
    if (const auto problem = co_await m_installer.stage(image, *work + u"/mnt"_qs, staged))
        co_return couldNot(*problem);
    if (!alive)
        co_return std::nullopt;
    co_await untilIdle();
    if (!alive)
        co_return std::nullopt;
    // Nothing may be waited for from here on: a capture could begin.
    const QString bundle = *m_installer.bundle();
    const SwapScript::Paths paths{.app = bundle, .staged = staged, .work = *work};
    const QString script
        = SwapScript::text(paths, QCoreApplication::applicationPid(), m_installer.commands(bundle));
    if (const auto problem = m_installer.start(script))
        co_return couldNot(*problem);
    log(u"instalando "_qs + version);
    terminate();
    co_return std::nullopt;
}

QCoro::Task<void> Updater::fail(QString message)
{
    const QPointer<Updater> alive(this);
    m_progress.reset();
    m_archive.reset();
    log(u"fallo (%1)"_qs.arg(message));
    const bool openWeb = co_await alert(UpdateAlerts::failed(message));
    if (alive && openWeb)
        m_desktop.openWeb(L10n::web());
}

QCoro::Task<bool> Updater::alert(UpdateAlerts::Alert alert)
{
    const QPointer<Updater> alive(this);
    co_await untilIdle();
    if (!alive)
        co_return false;
    co_return co_await UpdateAlerts::ask(std::move(alert));
}

QCoro::Task<void> Updater::untilIdle()
{
    const QPointer<Updater> alive(this);
    while (alive && busy && busy())
        co_await qCoro(this, &Updater::captureEnded, askAgainAfter);
}
