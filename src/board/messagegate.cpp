// Counting open messages; see messagegate.h.
#include "board/messagegate.h"

#include "core/scopedcount.h"

int MessageGate::MsgboxA(const QString& s, const QString& typ) {
    const ScopedCount open(m_open);
    return m_inner.MsgboxA(s, typ);
}

int MessageGate::standardBox(const QString& text, const QString& typ, const QString& title) {
    const ScopedCount open(m_open);
    return m_inner.standardBox(text, typ, title);
}
