// Recording notifier: see recordingnotifier.h.
#include "support/recordingnotifier.h"

int RecordingNotifier::MsgboxA(const QString& s, const QString& typ) {
    m_messages.append({s, typ, QString(), false});
    return nextAnswer();
}

int RecordingNotifier::standardBox(const QString& text, const QString& typ, const QString& title) {
    m_messages.append({text, typ, title, true});
    return nextAnswer();
}

QString RecordingNotifier::inputBox(const QString& prompt, const QString& title) {
    m_messages.append({prompt, QString(), title, false, true});
    if (duringMessage)
        duringMessage();
    return m_texts.isEmpty() ? QString() : m_texts.takeFirst();
}

QStringList RecordingNotifier::texts() const {
    QStringList list;
    for (const RecordedMessage& m : m_messages)
        list << m.text;
    return list;
}

int RecordingNotifier::nextAnswer() {
    const int answer = m_answers.isEmpty() ? AnswerOk : m_answers.takeFirst();
    if (duringMessage)
        duringMessage();
    return answer;
}
