// The program's Notifier; see msgformnotifier.h.
#include "ui/msgformnotifier.h"

#include "ui/msgform.h"
#include "ui/msgstyle.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

MsgFormNotifier::MsgFormNotifier(MsgForm& form)
    : m_form(form) {}

int MsgFormNotifier::MsgboxA(const QString& s, const QString& typ) {
    return m_form.MsgboxA(s, typ);
}

int MsgFormNotifier::standardBox(const QString& text, const QString& typ, const QString& title) {
    const MsgStyle style = parseMsgStyle(typ);
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(title);
    box.setText(text);
    const QMessageBox::Icon icons[] = {QMessageBox::Question, QMessageBox::Warning,
                                       QMessageBox::Information, QMessageBox::Critical,
                                       QMessageBox::Critical};
    if (!style.icons.isEmpty() && style.icons.first() < 5)
        box.setIcon(icons[style.icons.first()]);
    QList<QPair<QAbstractButton*, int>> answers;
    for (const MsgButton& b : style.buttons)
        answers.append({box.addButton(b.caption, QMessageBox::AcceptRole), b.value});
    box.exec();
    for (const auto& [button, value] : answers) {
        if (box.clickedButton() == button)
            return value;
    }
    return AnswerNone;
}
