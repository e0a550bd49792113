// The one way non-widget code puts a notice or a question (or asks for a line of text) to the
// player. The main window supplies an implementation backed by the message window; tests
// supply a recorder that answers from a script, so no modal loop ever runs in a test.
#pragma once

#include <QString>

// Answers, as the message window returns them.
enum MsgAnswer : int {
    AnswerNone = 0,
    AnswerOk = 1,
    AnswerCancel = 2,
    AnswerAbort = 3,
    AnswerRetry = 4,
    AnswerIgnore = 5,
    AnswerYes = 6,
    AnswerNo = 7,
};

class Notifier {
public:
    virtual ~Notifier() = default;

    // Shows `s` in the program's message window with the style text `typ` (keywords joined
    // by "+", e.g. "vbQuestion + vbYesNo") and returns the answer (a MsgAnswer value).
    virtual int MsgboxA(const QString& s, const QString& typ) = 0;

    // Shows `text` in the platform's standard message box titled `title`, with the icon and
    // buttons named by the style text `typ` as above, and returns the answer. Used where the
    // program deliberately does not use its own message window (error records, Options).
    virtual int standardBox(const QString& text, const QString& typ, const QString& title) = 0;

    // Asks for one line of text with the platform's standard input box titled `title`,
    // showing `prompt` and an empty entry field. Returns the text typed; Cancel or closing the
    // box gives an empty text, exactly as an empty answer does.
    virtual QString inputBox(const QString& prompt, const QString& title) = 0;
};
