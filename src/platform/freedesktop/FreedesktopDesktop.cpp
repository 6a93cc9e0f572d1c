#include "platform/freedesktop/FreedesktopDesktop.h"

#include "platform/freedesktop/SettingsPortal.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLocale>

void FreedesktopDesktop::beep()
{
    if (m_bell == Bell::ofDisplay)
        QApplication::beep();
    else
        m_pop.ring();
}

void FreedesktopDesktop::playPop() { m_pop.play(); }

bool FreedesktopDesktop::hasSound() { return m_pop.audible(); }

bool FreedesktopDesktop::reduceMotion() const { return m_settings->reducesMotion(); }

void FreedesktopDesktop::openWeb(const QUrl &address) { QDesktopServices::openUrl(address); }

QStringList FreedesktopDesktop::preferredLanguages() const { return QLocale::system().uiLanguages(); }
