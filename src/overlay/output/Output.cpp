#include "overlay/output/Output.h"

#include "base/Defaults.h"
#include "base/Log.h"
#include "l10n/L10n.h"
#include "overlay/output/SavePanel.h"
#include "pictures/ImageFiles.h"
#include "platform/Clipboard.h"
#include "platform/Desktop.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

QString outcome(bool good) { return good ? QStringLiteral("OK") : QStringLiteral("FALLO"); }

bool toClipboard(Clipboard &clipboard, const ImageFiles::Both &files)
{
    return clipboard.offer(
        {{QStringLiteral("image/png"), files.png}, {QStringLiteral("image/tiff"), files.tiff}});
}

QString startFolder()
{
    const QString last = Defaults::value(Defaults::lastFolderKey).toString();
    if (!last.isEmpty() && QFileInfo(last).isDir())
        return last;
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

QString suggestedName(const QDateTime &now)
{
    return L10n::t(u"Captura") + u' ' + now.toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"))
           + QStringLiteral(".png");
}

// Returns why it could not be written, if it could not.
std::optional<QString> write(const QString &path, const QByteArray &png)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(png) != png.size() || !file.commit())
        return file.errorString();
    Defaults::setValue(Defaults::lastFolderKey, QFileInfo(path).absolutePath());
    return std::nullopt;
}

// The capture ends all the same, and with it the only other place where the
// picture is.
void keepUnwritten(Clipboard &clipboard, const QString &path, const QString &reason, const QImage &picture)
{
    const auto files = ImageFiles::both(picture, picture.devicePixelRatio());
    const bool kept = files && toClipboard(clipboard, *files);
    Log::write(
        QStringLiteral("guardado %1 -> FALLO (%2); al portapapeles -> %3").arg(path, reason, outcome(kept)));
}

} // namespace

Output::Output(QWidget &overlay, Desktop &desktop) : m_overlay(overlay), m_desktop(desktop) {}

void Output::copy(const QImage &picture)
{
    const auto files = ImageFiles::both(picture, picture.devicePixelRatio());
    if (!files)
        return;
    const bool taken = toClipboard(m_desktop.clipboard(), *files);
    Log::write(QStringLiteral("copiado %1x%2 png=%3 -> %4")
                   .arg(picture.width())
                   .arg(picture.height())
                   .arg(files->png.size())
                   .arg(outcome(taken)));
    onCopied();
    m_desktop.playPop();
}

void Output::save(const QImage &picture)
{
    if (panelOpen())
        return;
    const auto png = ImageFiles::png(picture, picture.devicePixelRatio());
    if (!png)
        return m_desktop.beep();
    m_panel = new SavePanel(m_overlay, startFolder(), suggestedName(QDateTime::currentDateTime()));
    m_panel->onChosen = [this, bytes = *png, picture](const QString &path) {
        if (const auto reason = write(path, bytes))
            keepUnwritten(m_desktop.clipboard(), path, *reason, picture);
        onSaved();
    };
    // A click on the overlay must not take the keyboard from the panel, so the
    // overlay takes it only when it is told to.
    QObject::connect(m_panel, &QDialog::finished, &m_overlay, [this] { m_overlay.setFocus(); });
    m_panel->open();
}

bool Output::panelOpen() const { return m_panel && m_panel->isVisible(); }

void Output::closePanel()
{
    if (m_panel)
        m_panel->reject();
}
