// The program's Notifier; see msgformnotifier.h.
#include "ui/msgformnotifier.h"

#include "ui/msgform.h"
#include "ui/msgstyle.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

MsgFormNotifier::MsgFormNotifier(MsgForm& form)
    : m_form(form) {}

int MsgFormNotifier::MsgboxA(const QString& s, const QString& typ) {
    const int answer = m_form.MsgboxA(s, typ);
    QCoreApplication::processEvents();
    return answer;
}

int MsgFormNotifier::standardBox(const QString& text, const QString& typ, const QString& title) {
    const MsgStyle style = parseMsgStyle(typ);
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setText(text);
    box.setTextFormat(Qt::PlainText);
    // Slots 0..4: question, exclamation, information, error (stop), critical.
    static constexpr QMessageBox::Icon Icons[] = {QMessageBox::Question, QMessageBox::Warning,
                                                  QMessageBox::Information, QMessageBox::Critical,
                                                  QMessageBox::Critical};
    for (const int slot : style.icons) {
        if (slot < 5) {
            box.setIcon(Icons[slot]);
            break;
        }
    }
    QList<std::pair<const QAbstractButton*, int>> answers;
    for (const MsgButton& b : style.buttons) {
        const auto role = b.value == AnswerNo || b.value == AnswerCancel ? QMessageBox::RejectRole
                                                                         : QMessageBox::AcceptRole;
        const QAbstractButton* button = box.addButton(b.caption, role);
        answers.append(std::make_pair(button, b.value));
    }
    if (m_standardHook) {
        box.show();
        m_standardHook(box);
        box.hide();
    } else {
        box.exec();
    }
    QCoreApplication::processEvents();
    for (const auto& [button, value] : answers) {
        if (box.clickedButton() == button)
            return value;
    }
    return AnswerNone;
}

QString MsgFormNotifier::inputBox(const QString& prompt, const QString& title) {
    QInputDialog box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setTextValue(QString());
    bool accepted = false;
    if (m_inputHook) {
        box.show();
        m_inputHook(box);
        accepted = box.result() == QDialog::Accepted;
        box.hide();
    } else {
        accepted = box.exec() == QDialog::Accepted;
    }
    QCoreApplication::processEvents();
    return accepted ? box.textValue() : QString();
}
