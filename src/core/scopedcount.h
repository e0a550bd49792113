// Counts one level of something for the lifetime of a scope (a handler still running, a
// message still open, a command still busy), also when the scope is left by an exception.
// Nesting is allowed: the counter is the number of such scopes alive.
#pragma once

class ScopedCount {
public:
    explicit ScopedCount(int& counter)
        : m_counter(counter) {
        ++m_counter;
    }
    ~ScopedCount() { --m_counter; }
    ScopedCount(const ScopedCount&) = delete;
    ScopedCount& operator=(const ScopedCount&) = delete;

private:
    int& m_counter;
};
