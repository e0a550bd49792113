// Counting open messages; see messagegate.h.
#include "board/messagegate.h"

namespace {

// Counts one open message for its lifetime, also when the inner notifier throws.
class OpenScope {
public:
    explicit OpenScope(int& open)
        : m_open(open) {
        ++m_open;
    }
    ~OpenScope() { --m_open; }
    OpenScope(const OpenScope&) = delete;
    OpenScope& operator=(const OpenScope&) = delete;

private:
    int& m_open;
};

} // namespace

int MessageGate::MsgboxA(const QString& s, const QString& typ) {
    const OpenScope scope(m_open);
    return m_inner.MsgboxA(s, typ);
}

int MessageGate::standardBox(const QString& text, const QString& typ, const QString& title) {
    const OpenScope scope(m_open);
    return m_inner.standardBox(text, typ, title);
}

QString MessageGate::inputBox(const QString& prompt, const QString& title) {
    const OpenScope scope(m_open);
    return m_inner.inputBox(prompt, title);
}
