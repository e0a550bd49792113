// A Notifier for tests: records every message and answers from a queue of scripted answers
// (AnswerOk when the queue is empty) and every input box from a queue of scripted texts (""
// when empty, as Cancel gives), so code that asks the player runs without a modal loop.
// A hook can run while a message "is open", standing in for the timer events a modal message
// loop delivers.
#pragma once

#include "core/notifier.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

struct RecordedMessage {
    QString text;
    QString style;
    QString title; // empty for MsgboxA
    bool standard = false;
    bool input = false; // an input box: `text` is its prompt
};

class RecordingNotifier : public Notifier {
public:
    int MsgboxA(const QString& s, const QString& typ) override {
        return record({s, typ, QString(), false},
                      m_answers.isEmpty() ? AnswerOk : m_answers.takeFirst());
    }
    int standardBox(const QString& text, const QString& typ, const QString& title) override {
        return record({text, typ, title, true},
                      m_answers.isEmpty() ? AnswerOk : m_answers.takeFirst());
    }
    QString inputBox(const QString& prompt, const QString& title) override {
        record({prompt, QString(), title, false, true}, 0);
        return m_texts.isEmpty() ? QString() : m_texts.takeFirst();
    }

    // Answers handed out in order to the following calls.
    void queueAnswer(int answer) { m_answers.append(answer); }
    // Texts handed out in order to the following input boxes.
    void queueText(const QString& text) { m_texts.append(text); }
    const QList<RecordedMessage>& messages() const { return m_messages; }
    // The texts of the recorded messages, in order.
    QStringList texts() const {
        QStringList list;
        for (const RecordedMessage& m : m_messages)
            list << m.text;
        return list;
    }
    void clear() { m_messages.clear(); }

    // Runs inside every call, after the message is recorded (none: nothing).
    std::function<void()> duringMessage;

private:
    int record(const RecordedMessage& message, int answer) {
        m_messages.append(message);
        if (duringMessage)
            duringMessage();
        return answer;
    }

    QList<RecordedMessage> m_messages;
    QList<int> m_answers;
    QList<QString> m_texts;
};
