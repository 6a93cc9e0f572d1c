#include "platform/freedesktop/PrivacySettings.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace {

struct Page {
    const char16_t *desktop; // as it names itself in XDG_CURRENT_DESKTOP
    const char16_t *program;
    const char16_t *page;
};

// The last two are one program by its newer and its older name.
constexpr Page pages[] = {
    {u"GNOME", u"gnome-control-center", u"privacy"},
    {u"KDE", u"systemsettings", u"kcm_flatpak"},
    {u"KDE", u"systemsettings5", u"kcm_flatpak"},
};

} // namespace

namespace PrivacySettings {

bool open()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    for (const Page &page : pages) {
        const QString program = QStandardPaths::findExecutable(QString::fromUtf16(page.program));
        if (desktops.contains(QString::fromUtf16(page.desktop)) && !program.isEmpty())
            return QProcess::startDetached(program, {QString::fromUtf16(page.page)});
    }
    return false;
}

} // namespace PrivacySettings
