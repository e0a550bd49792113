// The program's Notifier: questions and notices from the puzzle core and the windows go to
// the message window (MsgboxA) or to Qt's standard message box (standardBox).
#pragma once

#include "core/notifier.h"

class MsgForm;

class MsgFormNotifier : public Notifier {
public:
    explicit MsgFormNotifier(MsgForm& form);

    int MsgboxA(const QString& s, const QString& typ) override;
    int standardBox(const QString& text, const QString& typ, const QString& title) override;

private:
    MsgForm& m_form;
};
