// The program's random generator; see randomsource.h.
#include "core/randomsource.h"

#include <limits>

RandomSource::RandomSource() {
    std::random_device device;
    const quint64 high = device();
    seed((high << 32) ^ device());
}

RandomSource::RandomSource(quint64 seed) {
    this->seed(seed);
}

void RandomSource::seed(quint64 seed) {
    m_engine.seed(seed);
}

qint64 RandomSource::between(qint64 low, qint64 high) {
    const quint64 span = static_cast<quint64>(high) - static_cast<quint64>(low) + 1;
    if (span == 0) // the whole 64-bit range
        return static_cast<qint64>(m_engine());
    // Reject the top partial block so every value is equally likely.
    const quint64 limit =
        std::numeric_limits<quint64>::max() - std::numeric_limits<quint64>::max() % span;
    quint64 draw = m_engine();
    while (draw >= limit)
        draw = m_engine();
    return static_cast<qint64>(static_cast<quint64>(low) + draw % span);
}
