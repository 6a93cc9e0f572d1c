#include "updater/Updater.h"

#include "l10n/L10n.h"
#include "platform/Desktop.h"
#include "updater/ClipboardBequest.h"
#include "updater/Download.h"
#include "updater/ProgressWindow.h"
#include "updater/Sha256.h"
#include "updater/SwapScript.h"
#include "updater/UpdateWords.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSysInfo>
#include <QUuid>

using UpdateWords::couldNot;
using UpdateWords::log;

// From the user's consent to the end of the program.

namespace {

constexpr qint64 mebibyte = 1'048'576;
constexpr Download::Limits archiveLimits{.whole = 512 * mebibyte, .stretch = mebibyte / 16};

// A folder for the user's eyes only; absent when there is no room for one.
std::optional<QString> makeWorkFolder(const QDir &temporary)
{
    const QString name = u"vellumora-act-"_qs + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    if (!temporary.mkdir(name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return std::nullopt;
    return temporary.filePath(name);
}

QString contains(const QString &path, QChar refused)
{
    return path + u": "_qs + L10n::t(u"la ruta contiene %@", refused);
}

} // namespace

QCoro::Task<void> Updater::install(Manifest manifest)
{
    const QPointer<Updater> alive(this);
    auto problem = obstacle(manifest.item());
    if (!problem && !m_installer.claim(*m_installer.bundle())) {
        log(u"otra actualizacion en curso"_qs);
        co_return;
    }
    if (!problem) {
        showProgress(manifest.version);
        m_mark = {*m_installer.bundle(), manifest.version};
        problem = co_await prepare(manifest.item());
    }
    if (alive && !problem)
        problem = co_await download(manifest.item());
    if (alive && !problem)
        problem = co_await replaceBundle(manifest.version);
    if (alive && problem)
        co_await fail(*problem);
}

Updater::Problem Updater::obstacle(const Manifest::Item &item) const
{
    const auto bundle = m_installer.bundle();
    if (!bundle || !m_installer.canReplace(*bundle))
        return L10n::t(u"Vellumora no está en una carpeta donde se pueda escribir.");
    for (const QString &path : {*bundle, m_installer.temporaryFolder()})
        if (const auto refused = SwapScript::unquotable(path))
            return couldNot(contains(path, *refused));
    const QString here = QSysInfo::buildCpuArchitecture();
    if (item.arch.value_or(here) != here)
        return couldNot(u"%1 ≠ %2"_qs.arg(*item.arch, here));
    return std::nullopt;
}

void Updater::showProgress(const QString &version)
{
    m_progress = std::make_unique<ProgressWindow>(version);
    m_progress->present();
    connect(m_download.get(), &Download::progressed, m_progress.get(), &ProgressWindow::setProgress);
}

// What dead updates have left may be what is in the way.
QCoro::Task<Updater::Problem> Updater::prepare(Manifest::Item item)
{
    const QPointer<Updater> alive(this);
    const QStringList leftovers = UpdateMark::leftoversOf(m_mark.bundle);
    co_await m_installer.sweep(m_mark.bundle, leftovers);
    if (!alive)
        co_return std::nullopt;
    if (const auto problem = co_await m_installer.rehearse(m_mark.bundle, item.size.value_or(0)))
        co_return couldNot(*problem);
    co_return std::nullopt;
}

QCoro::Task<Updater::Problem> Updater::download(Manifest::Item item)
{
    const QPointer<Updater> alive(this);
    const QDir temporary(m_installer.temporaryFolder());
    temporary.mkpath(u"."_qs);
    m_archive.emplace(temporary.filePath(u"vellumora-XXXXXX"_qs));
    if (!m_archive->open())
        co_return couldNot(m_archive->errorString());
    m_mark.leftovers = {m_archive->fileName()};
    m_mark.store();
    Sha256 digest;
    const auto keep = [&](const QByteArray &piece) {
        digest.add(piece);
        return m_archive->write(piece) == piece.size();
    };
    auto limits = archiveLimits;
    limits.whole = std::min(limits.whole, item.size.value_or(limits.whole));
    auto problem = co_await m_download->receive(QUrl(item.url, QUrl::StrictMode), limits, keep);
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

QCoro::Task<Updater::Problem> Updater::replaceBundle(QString version)
{
    const QPointer<Updater> alive(this);
    const QDir temporary(m_installer.temporaryFolder());
    const auto work = makeWorkFolder(temporary);
    if (!work)
        co_return couldNot(temporary.path());
    m_mark.leftovers.append(*work);
    m_mark.store();
    if (const auto problem = co_await makeStaged(*work, version))
        co_return couldNot(*problem);
    if (alive)
        co_await untilCalm();
    if (!alive)
        co_return std::nullopt;
    // Nothing may be waited for from here on: a capture could begin.
    if (const auto problem = handOver(*work))
        co_return couldNot(*problem);
    log(u"instalando "_qs + version);
    terminate();
    co_return std::nullopt;
}

QCoro::Task<Updater::Problem> Updater::makeStaged(QString work, QString version)
{
    const QPointer<Updater> alive(this);
    const QString image = work + u"/c.dmg"_qs;
    const QString staged = work + u"/Vellumora.app"_qs;
    if (!m_archive->rename(image))
        co_return m_archive->errorString();
    m_archive->setAutoRemove(false);
    auto problem = co_await m_installer.stage(image, work + u"/mnt"_qs, staged);
    if (alive && !problem)
        problem = co_await m_installer.tryOut(staged, version, QFileInfo(m_mark.bundle).path());
    co_return problem;
}

// The last thing that this program does for the next one.
Updater::Problem Updater::handOver(const QString &work)
{
    if (m_installer.bundle() != m_mark.bundle)
        return m_mark.bundle;
    const SwapScript::Paths paths{.app = m_mark.bundle,
                                  .aside = SwapScript::aside(m_mark.bundle),
                                  .staged = work + u"/Vellumora.app"_qs,
                                  .work = work};
    const QString script
        = SwapScript::text(paths, QCoreApplication::applicationPid(), m_installer.commands(m_mark.bundle));
    m_mark.swapping = true;
    m_mark.store();
    auto problem = m_installer.start(script, ClipboardBequest::pack(m_desktop.clipboard()));
    if (problem) {
        m_mark.swapping = false;
        m_mark.store();
    }
    return problem;
}
