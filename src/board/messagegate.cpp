// Counting open messages; see messagegate.h.
#include "board/messagegate.h"

namespace {

// Counts one open message for its lifetime, also when the inner notifier throws, and tells
// the hook.
class OpenScope {
public:
    OpenScope(int& open, const MessageGate::OpenHook& hook)
        : m_open(open)
        , m_hook(hook) {
        ++m_open;
        if (m_hook)
            m_hook(true);
    }
    ~OpenScope() {
        --m_open;
        if (m_hook)
            m_hook(false);
    }
    OpenScope(const OpenScope&) = delete;
    OpenScope& operator=(const OpenScope&) = delete;

private:
    int& m_open;
    const MessageGate::OpenHook& m_hook;
};

} // namespace

int MessageGate::MsgboxA(const QString& s, const QString& typ) {
    const OpenScope scope(m_open, m_hook);
    return m_inner.MsgboxA(s, typ);
}

int MessageGate::standardBox(const QString& text, const QString& typ, const QString& title) {
    const OpenScope scope(m_open, m_hook);
    return m_inner.standardBox(text, typ, title);
}
