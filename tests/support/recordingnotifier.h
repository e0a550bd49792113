// A Notifier for tests: records each message, answers from queues (AnswerOk and "" when empty),
// and runs `duringMessage` while a message "is open", as a modal loop's timer events would.
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

    void queueAnswer(int answer) { m_answers.append(answer); }
    void queueText(const QString& text) { m_texts.append(text); }
    const QList<RecordedMessage>& messages() const { return m_messages; }
    QStringList texts() const {
        QStringList list;
        for (const RecordedMessage& m : m_messages)
            list << m.text;
        return list;
    }
    void clear() { m_messages.clear(); }

    std::function<void()> duringMessage;

private:
    int record(const RecordedMessage& message, int answer) { // answer after duringMessage
        m_messages.append(message);
        if (duringMessage)
            duringMessage();
        return answer;
    }

    QList<RecordedMessage> m_messages;
    QList<int> m_answers;
    QList<QString> m_texts;
};
