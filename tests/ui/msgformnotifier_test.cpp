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

class MsgFormNotifierTest : public ::testing::Test {
protected:
    MsgForm m_form;
    MsgFormNotifier m_notifier{m_form};
};

TEST_F(MsgFormNotifierTest, MsgboxAAsksThroughTheMessageWindow) {
    m_form.setShowHook([](MsgForm& form) {
        EXPECT_EQ(form.button(1)->Caption(), QStringLiteral("No"));
        QTest::mouseClick(form.button(1), Qt::LeftButton);
    });
    EXPECT_EQ(m_notifier.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")),
              AnswerNo);
    EXPECT_EQ(m_form.label()->text(), QStringLiteral("Exit?"));
}

TEST_F(MsgFormNotifierTest, StandardBoxShowsTitleTextIconAndNamedButtons) {
    m_notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Pentalink"));
        EXPECT_EQ(box.text(), QStringLiteral("Replace color scheme: sea"));
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        ASSERT_EQ(box.buttons().size(), 2);
        QAbstractButton* yes = buttonCalled(box, QStringLiteral("Yes"));
        ASSERT_NE(yes, nullptr);
        yes->click();
    });
    EXPECT_EQ(m_notifier.standardBox(QStringLiteral("Replace color scheme: sea"),
                                     QStringLiteral("vbquestion+vbyesno"),
                                     QStringLiteral("Pentalink")),
              AnswerYes);
}

TEST_F(MsgFormNotifierTest, StandardBoxAnswersTheButtonChosenOrNoneWhenClosed) {
    m_notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        buttonCalled(box, QStringLiteral("No"))->click();
    });
    EXPECT_EQ(
        m_notifier.standardBox(QStringLiteral("q"), QStringLiteral("vbyesno"), QStringLiteral("t")),
        AnswerNo);

    m_notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons()[0]->text(), QStringLiteral("Ok"));
    });
    EXPECT_EQ(m_notifier.standardBox(QStringLiteral("q"), QStringLiteral("vbcritical"),
                                     QStringLiteral("t")),
              AnswerNone);
}

} // namespace
