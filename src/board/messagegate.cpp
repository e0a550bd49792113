// Counting open messages; see messagegate.h.
#include "board/messagegate.h"

#include "core/scopedcount.h"

namespace {

// Tells the hook that a message opens, and that it has closed when the scope ends (also when
// showing it throws).
class HookScope {
public:
    HookScope(const MessageGate::OpenHook& hook, const QString& text)
        : m_hook(hook)
        , m_text(text) {
        if (m_hook)
            m_hook(true, m_text);
    }
    ~HookScope() {
        if (m_hook)
            m_hook(false, m_text);
    }
    HookScope(const HookScope&) = delete;
    HookScope& operator=(const HookScope&) = delete;

private:
    const MessageGate::OpenHook& m_hook;
    const QString& m_text;
};

} // namespace

int MessageGate::MsgboxA(const QString& s, const QString& typ) {
    const ScopedCount open(m_open);
    const HookScope hook(m_hook, s);
    return m_inner.MsgboxA(s, typ);
}

int MessageGate::standardBox(const QString& text, const QString& typ, const QString& title) {
    const ScopedCount open(m_open);
    const HookScope hook(m_hook, text);
    return m_inner.standardBox(text, typ, title);
}

QString MessageGate::inputBox(const QString& prompt, const QString& title) {
    const ScopedCount open(m_open);
    return m_inner.inputBox(prompt, title);
}
