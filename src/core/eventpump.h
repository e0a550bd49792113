// Lets pending window events run during long work (dictionary loading, puzzle generation)
// without paying for it on every step: poll() runs the action only when at least the interval
// has passed since it last ran. The time source is replaceable so tests drive it by calls.
#pragma once

#include <QtGlobal>

#include <functional>

class EventPump {
public:
    using Action = std::function<void()>;
    using Clock = std::function<qint64()>; // a monotonic time in milliseconds

    // About one frame: often enough that the window repaints smoothly during a long load.
    static constexpr qint64 kDefaultIntervalMs = 16;

    // action: what "let events run" means (none: nothing runs); clock: default a monotonic
    // system clock. The interval counts from construction.
    explicit EventPump(Action action = {}, qint64 intervalMs = kDefaultIntervalMs,
                       Clock clock = {});

    void setAction(Action action) { m_action = std::move(action); }
    void setClock(Clock clock);

    // Runs the action when at least the interval has passed since it last ran.
    void poll();
    // Runs the action now.
    void runNow();

    // Asks the work that polls this pump to stop (the window is closing). The work checks it
    // after its polls; the request stays until clearStop().
    void requestStop() { m_stopRequested = true; }
    bool stopRequested() const { return m_stopRequested; }
    void clearStop() { m_stopRequested = false; }

private:
    Action m_action;
    qint64 m_intervalMs;
    Clock m_clock;
    qint64 m_lastRun = 0;
    bool m_stopRequested = false;
};
