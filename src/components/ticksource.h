// Where the clock's ticks come from. A tick is a call of the handler; the real source is a
// QTimer, tests use a source they fire by hand, so no test ever waits for time to pass.
#pragma once

#include <QTimer>

#include <functional>
#include <utility>

class TickSource {
public:
    virtual ~TickSource() = default;

    // The call made on every tick.
    void setHandler(std::function<void()> onTick) { m_onTick = std::move(onTick); }

    // Ticks every `intervalMs` from now on; a running source keeps its rhythm.
    virtual void start(int intervalMs) = 0;
    // No more ticks until the next start().
    virtual void stop() = 0;
    virtual bool isActive() const = 0;

protected:
    void fire() const {
        if (m_onTick)
            m_onTick();
    }

private:
    std::function<void()> m_onTick;
};

// Ticks from a QTimer of the thread that owns it.
class TimerTickSource : public TickSource {
public:
    TimerTickSource() {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { fire(); });
    }
    void start(int intervalMs) override {
        if (!m_timer.isActive())
            m_timer.start(intervalMs);
    }
    void stop() override { m_timer.stop(); }
    bool isActive() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};
