// Throttled "let pending events run"; see eventpump.h.
#include "core/eventpump.h"

#include <chrono>

namespace {

qint64 steadyMilliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

EventPump::EventPump(Action action, qint64 intervalMs, Clock clock)
    : m_action(std::move(action))
    , m_intervalMs(intervalMs) {
    setClock(std::move(clock));
}

void EventPump::setClock(Clock clock) {
    m_clock = clock ? std::move(clock) : Clock(steadyMilliseconds);
    m_lastRun = m_clock();
}

void EventPump::poll() {
    if (m_clock() - m_lastRun >= m_intervalMs)
        runNow();
}

void EventPump::runNow() {
    m_lastRun = m_clock();
    if (m_action)
        m_action();
}
