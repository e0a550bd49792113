// A Notifier for tests: records every message and answers from a queue of scripted answers
// (AnswerOk when the queue is empty) and every input box from a queue of scripted texts (""
// when empty, as Cancel gives), so code that asks the player runs without a modal loop.
#pragma once

#include "core/notifier.h"

#include <QList>
#include <QString>

struct RecordedMessage {
    QString text;
    QString style;
    QString title; // empty for MsgboxA
    bool standard = false;
    bool input = false; // an input box: `text` is its prompt
};

class RecordingNotifier : public Notifier {
public:
    int MsgboxA(const QString& s, const QString& typ) override;
    int standardBox(const QString& text, const QString& typ, const QString& title) override;
    QString inputBox(const QString& prompt, const QString& title) override;

    // Answers handed out in order to the following calls.
    void queueAnswer(int answer) { m_answers.append(answer); }
    // Texts handed out in order to the following input boxes.
    void queueText(const QString& text) { m_texts.append(text); }

    const QList<RecordedMessage>& messages() const { return m_messages; }
    void clear() { m_messages.clear(); }

private:
    int nextAnswer();

    QList<RecordedMessage> m_messages;
    QList<int> m_answers;
    QList<QString> m_texts;
};
