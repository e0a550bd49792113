// The program's Notifier: notices and questions from the puzzle core and the windows go to
// the message window (MsgboxA), to Qt's standard message box (standardBox) or to Qt's standard
// input box (inputBox). After any of them closes, pending window events run before the caller
// goes on.
#pragma once

#include "core/notifier.h"

#include <functional>

class MsgForm;
class QInputDialog;
class QMessageBox;

class MsgFormNotifier : public Notifier {
public:
    // `form` must outlive the notifier.
    explicit MsgFormNotifier(MsgForm& form);

    int MsgboxA(const QString& s, const QString& typ) override;

    // A QMessageBox titled `title` with the first named icon among question, exclamation,
    // information, error and critical, and the named buttons with their captions ("Ok", "Yes",
    // ...). Returns the value of the button chosen, AnswerNone when the box was closed
    // otherwise.
    int standardBox(const QString& text, const QString& typ, const QString& title) override;

    // Qt's standard input box (QInputDialog) titled `title`, empty entry field. Cancel gives "".
    QString inputBox(const QString& prompt, const QString& title) override;

    // For tests: when set, standardBox shows its box without a modal loop and calls the
    // hook, which answers by clicking one of the box's buttons.
    using StandardBoxHook = std::function<void(QMessageBox&)>;
    void setStandardBoxHook(StandardBoxHook hook) { m_standardHook = std::move(hook); }
    // For tests: when set, inputBox shows its box without a modal loop and calls the hook,
    // which types and accepts or rejects it.
    using InputBoxHook = std::function<void(QInputDialog&)>;
    void setInputBoxHook(InputBoxHook hook) { m_inputHook = std::move(hook); }

private:
    MsgForm& m_form;
    StandardBoxHook m_standardHook;
    InputBoxHook m_inputHook;
};
