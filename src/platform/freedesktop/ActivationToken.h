#pragma once

#include <QByteArray>
#include <QtGlobal>

// Makes the next window that asks to be activated come to the front by the desktop's
// leave, which another process was given. Nothing happens without a token.
inline void adoptActivation(const QByteArray &token)
{
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token); // where the toolkit looks for it
}
