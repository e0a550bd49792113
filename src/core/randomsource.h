// The program's one random generator. Seeded from the system's entropy source by default;
// tests and the command-line generator pass a seed and get the same sequence on every
// platform (a 64-bit Mersenne Twister and our own unbiased range reduction).
#pragma once

#include <QtGlobal>

#include <random>

class RandomSource {
public:
    // Seeds from std::random_device.
    RandomSource();
    explicit RandomSource(quint64 seed);

    void seed(quint64 seed);

    // A uniformly distributed whole number in [low, high]. Precondition: low <= high.
    qint64 between(qint64 low, qint64 high);

private:
    std::mt19937_64 m_engine;
};
