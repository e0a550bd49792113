// A tick source for tests: ticks only while started, like the real timer, and only when
// the test calls tick().
#pragma once

#include "components/ticksource.h"

class ManualTicks : public TickSource {
public:
    void start(int intervalMs) override {
        m_active = true;
        m_interval = intervalMs;
    }
    void stop() override { m_active = false; }
    bool isActive() const override { return m_active; }
    void tick() const {
        if (m_active)
            fire();
    }
    int interval() const { return m_interval; }

private:
    bool m_active = false;
    int m_interval = 0;
};
