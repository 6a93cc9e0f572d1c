#pragma once

#include <QString>

#include <cstdio>

// Prints the messages of the modes, one line at a time.
namespace Console {

inline void say(const QString &line)
{
    std::fputs((line + u'\n').toLocal8Bit().constData(), stdout);
    std::fflush(stdout);
}

inline void complain(const QString &line)
{
    std::fputs((QStringLiteral("vellumora: ") + line + u'\n').toLocal8Bit().constData(), stderr);
}

} // namespace Console
