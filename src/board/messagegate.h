// A Notifier that passes every message on and knows whether one is open. The window gives the
// same gate to everything that shows messages, so a timer tick that arrives while a message
// waits for the player (its modal loop runs timers) can see that and hold back its own.
#pragma once

#include "core/notifier.h"

#include <functional>

class MessageGate : public Notifier {
public:
    // `inner` shows the messages; it must outlive the gate.
    explicit MessageGate(Notifier& inner)
        : m_inner(inner) {}

    int MsgboxA(const QString& s, const QString& typ) override;
    int standardBox(const QString& text, const QString& typ, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title) override;

    // True while a message passed through this gate has not been answered yet.
    bool isOpen() const { return m_open > 0; }

    // Called with true and the message's text just before each message is shown, and with
    // false once it is answered (also when showing it throws); the window restores the normal
    // pointer meanwhile and tells a screen reader what the message says.
    using OpenHook = std::function<void(bool opening, const QString& text)>;
    void setOpenHook(OpenHook hook) { m_hook = std::move(hook); }

private:
    Notifier& m_inner;
    OpenHook m_hook;
    int m_open = 0; // nesting depth: a message can be opened from another's modal loop
};
