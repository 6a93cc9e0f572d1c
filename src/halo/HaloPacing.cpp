#include "halo/HaloPacing.h"

#include <algorithm>

namespace {

constexpr double turnInterval = 1.0 / 30; // seconds
constexpr double shortestInterval = 1.0 / 60;
constexpr double longestInterval = 0.1;
constexpr double idleShare = 3; // a frame is followed by this many times its cost without one

} // namespace

std::optional<double> HaloPacing::due() const
{
    return m_state == State::waiting ? std::optional(m_due) : std::nullopt;
}

void HaloPacing::want(Reason reason, double now)
{
    m_wanted = std::max(m_wanted.value_or(reason), reason);
    if (m_state == State::asked || m_state == State::painted)
        return;
    const double soonest = std::max(m_begun + apart(), now);
    m_due = m_state == State::waiting ? std::min(m_due, soonest) : soonest;
    m_state = State::waiting;
}

double HaloPacing::apart() const
{
    const double shortest = *m_wanted == Reason::turn ? turnInterval : shortestInterval;
    return std::clamp((1 + idleShare) * m_cost, shortest, longestInterval);
}

void HaloPacing::begin(double now)
{
    m_reason = m_wanted.value_or(Reason::turn);
    m_wanted.reset();
    m_begun = now;
}

void HaloPacing::ask() { m_state = State::asked; }

void HaloPacing::drop()
{
    m_state = State::idle;
    m_wanted.reset();
}

bool HaloPacing::paint()
{
    if (m_state != State::asked)
        return false;
    m_state = State::painted;
    return true;
}

void HaloPacing::show(Rest rest, double now)
{
    m_due = now;
    m_state = rest == Rest::pieces ? State::waiting : State::idle;
    if (rest == Rest::pieces)
        return;
    m_cost = now - m_begun;
    if (m_wanted)
        want(*m_wanted, now);
}
