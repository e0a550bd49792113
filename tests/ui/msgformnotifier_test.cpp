// The program's Notifier: the message window for MsgboxA, Qt's standard box for standardBox.
#include "ui/msgformnotifier.h"

#include "ui/boxcontrol.h"
#include "ui/msgform.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QAbstractButton* buttonCalled(QMessageBox& box, const QString& caption) {
    for (QAbstractButton* button : box.buttons()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

TEST(MsgFormNotifier, MsgboxAAsksThroughTheMessageWindow) {
    MsgForm form;
    MsgFormNotifier notifier{form};
    form.setShowHook([](MsgForm& shown) {
        EXPECT_EQ(shown.button(1)->Caption(), QStringLiteral("No"));
        QTest::mouseClick(shown.button(1), Qt::LeftButton);
    });
    EXPECT_EQ(notifier.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")),
              AnswerNo);
    EXPECT_EQ(form.label()->text(), QStringLiteral("Exit?"));
}

TEST(MsgFormNotifier, StandardBoxShowsTitleTextIconAndAnswersTheButtonChosenOrNone) {
    MsgForm form;
    MsgFormNotifier notifier{form};
    notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Pentalink"));
        EXPECT_EQ(box.text(), QStringLiteral("Replace color scheme: sea"));
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        ASSERT_EQ(box.buttons().size(), 2);
        ASSERT_NE(buttonCalled(box, QStringLiteral("Yes")), nullptr);
        buttonCalled(box, QStringLiteral("No"))->click();
    });
    EXPECT_EQ(notifier.standardBox(QStringLiteral("Replace color scheme: sea"),
                                   QStringLiteral("vbquestion+vbyesno"),
                                   QStringLiteral("Pentalink")),
              AnswerNo);

    notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons()[0]->text(), QStringLiteral("Ok"));
    });
    EXPECT_EQ(notifier.standardBox(QStringLiteral("q"), QStringLiteral("vbcritical"),
                                   QStringLiteral("t")),
              AnswerNone);
    notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        buttonCalled(box, QStringLiteral("Yes"))->click();
    });
    EXPECT_EQ(
        notifier.standardBox(QStringLiteral("q"), QStringLiteral("vbyesno"), QStringLiteral("t")),
        AnswerYes);
}

} // namespace
