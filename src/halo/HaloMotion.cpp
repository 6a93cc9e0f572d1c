#include "halo/HaloMotion.h"

#include "base/Easing.h"

#include <QPointF>

#include <cmath>

namespace {

constexpr double turnLasts = 7; // seconds
constexpr double peak = 0.28;   // where in a pulse it is largest

// From 0 up to 1 and down again.
double bump(double progress)
{
    return progress < peak ? Easing::out().valueForProgress(progress / peak)
                           : 1 - Easing::inOut().valueForProgress((progress - peak) / (1 - peak));
}

} // namespace

void HaloMotion::startSpin(double now)
{
    if (m_spinning)
        return;
    m_spinning = true;
    m_start = clock(now);
}

void HaloMotion::stop(double now)
{
    m_turned = turn(now);
    m_spinning = false;
    m_pulseLasts = 0;
}

void HaloMotion::setPaused(bool paused, double now)
{
    if (paused == m_paused)
        return;
    if (paused)
        m_pausedAt = now;
    else
        m_lost += now - m_pausedAt;
    m_paused = paused;
}

void HaloMotion::pulse(Pulse kind, double now)
{
    m_pulseStart = clock(now);
    m_pulseLasts = kind == Pulse::strong ? 0.5 : 0.9;
    m_pulseSwell = kind == Pulse::strong ? 1.6 : 1.45;
}

double HaloMotion::turn(double now) const
{
    const double since = m_spinning ? (clock(now) - m_start) / turnLasts : 0;
    return std::fmod(m_turned + since, 1.0);
}

bool HaloMotion::pulsing(double now) const { return clock(now) < m_pulseStart + m_pulseLasts; }

HaloMotion::Flash HaloMotion::flash(double now) const
{
    if (!pulsing(now))
        return {};
    const double height = bump((clock(now) - m_pulseStart) / m_pulseLasts);
    return {1 + (m_pulseSwell - 1) * height, restOpacity + (1 - restOpacity) * height};
}

bool HaloMotion::moving(double now) const { return !m_paused && (m_spinning || pulsing(now)); }
