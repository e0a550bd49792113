// The message window, headless: style, layout measured in the real font, the answers by
// mouse and Enter, colours that stay in force, and the result that carries over. Messages are
// answered through the show hook, so no modal loop runs except in the one test about it.
#include "ui/msgform.h"

#include "core/settings.h"
#include "ui/boxcontrol.h"
#include "ui/olecolor.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Act = std::function<void(MsgForm&)>;

void click(MsgForm& form, int i, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(form.button(i), button, {}, QPoint(5, 5));
}

void pressEnter(MsgForm& form) {
    QTest::keyClick(&form, Qt::Key_Return);
}

QStringList shownCaptions(const MsgForm& form) {
    QStringList captions;
    for (int i = 0; i < MsgButtonSlots; ++i) {
        if (form.button(i)->isVisibleTo(&form))
            captions.append(form.button(i)->Caption());
    }
    return captions;
}

QList<int> shownIcons(const MsgForm& form) {
    QList<int> slots;
    for (int slot = 0; slot < MsgIconSlots; ++slot) {
        if (form.icon(slot)->isVisibleTo(&form))
            slots.append(slot);
    }
    return slots;
}

class MsgFormTest : public ::testing::Test {
protected:
    // Shows a message; `act` runs while it is up and may answer it.
    int ask(const QString& s, const QString& typ, const Act& act, qint64 BGCol = -1,
            qint64 cmdcol = -1) {
        m_form.setShowHook([&](MsgForm& form) {
            EXPECT_TRUE(form.isVisible());
            act(form);
        });
        const int answer = m_form.MsgboxA(s, typ, BGCol, cmdcol);
        m_form.setShowHook({});
        return answer;
    }

    MsgForm m_form;
};

TEST_F(MsgFormTest, QuestionYesNoShowsTheQuestionIconAndAnswersYesOrNo) {
    const Act check = [](MsgForm& form) {
        EXPECT_EQ(shownIcons(form), QList<int>{0});
        EXPECT_EQ(shownCaptions(form), (QStringList{QStringLiteral("Yes"), QStringLiteral("No")}));
        EXPECT_LT(form.button(0)->x(), form.button(1)->x());
    };
    EXPECT_EQ(ask(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"),
                  [&](MsgForm& form) {
                      check(form);
                      click(form, 0);
                      EXPECT_FALSE(form.isVisible());
                  }),
              6);
    EXPECT_EQ(ask(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"),
                  [&](MsgForm& form) { click(form, 1); }),
              7);
}

TEST_F(MsgFormTest, EnterAnswersOnlyAnOkFirstButton) {
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbok+vbcancel"),
                  [](MsgForm& form) {
                      EXPECT_EQ(shownCaptions(form),
                                (QStringList{QStringLiteral("Ok"), QStringLiteral("Cancel")}));
                      pressEnter(form);
                  }),
              1);
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbcancel+vbok"),
                  [](MsgForm& form) {
                      EXPECT_EQ(shownCaptions(form),
                                (QStringList{QStringLiteral("Cancel"), QStringLiteral("Ok")}));
                      pressEnter(form);
                      QTest::keyClick(&form, Qt::Key_Enter);
                      EXPECT_TRUE(form.isVisible());
                      click(form, 0);
                  }),
              2);
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbyesno"),
                  [](MsgForm& form) {
                      pressEnter(form);
                      EXPECT_TRUE(form.isVisible());
                      click(form, 1);
                  }),
              7);
}

TEST_F(MsgFormTest, AnEmptyStyleGivesOneOkButtonAndNoIcon) {
    EXPECT_EQ(ask(QStringLiteral("Hello"), QString(),
                  [](MsgForm& form) {
                      EXPECT_TRUE(shownIcons(form).isEmpty());
                      EXPECT_EQ(shownCaptions(form), QStringList{QStringLiteral("Ok")});
                      QTest::keyClick(&form, Qt::Key_Enter); // the keypad Enter too
                  }),
              1);
}

TEST_F(MsgFormTest, NormalOkAnswersZeroAlsoThroughEnter) {
    ask(QStringLiteral("m"), QStringLiteral("vbyesno"), [](MsgForm& form) { click(form, 0); });
    ASSERT_EQ(m_form.result(), 6);
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbnormal"),
                  [](MsgForm& form) { pressEnter(form); }),
              0);
    EXPECT_EQ(
        ask(QStringLiteral("m"), QStringLiteral("vbnormal"), [](MsgForm& form) { click(form, 0); }),
        0);
}

TEST_F(MsgFormTest, AnyMouseButtonAnswersEvenReleasedOffTheButton) {
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbyesnocancel"),
                  [](MsgForm& form) { click(form, 1, Qt::RightButton); }),
              7);
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbabortretryignore"),
                  [](MsgForm& form) { click(form, 2, Qt::MiddleButton); }),
              5);
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbretrycancel"),
                  [](MsgForm& form) {
                      QTest::mousePress(form.button(0), Qt::LeftButton, {}, QPoint(5, 5));
                      QTest::mouseRelease(form.button(0), Qt::LeftButton, {}, QPoint(-40, 90));
                  }),
              4);
}

TEST_F(MsgFormTest, NoOtherKeyAndNoCloseRequestEndsTheMessage) {
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbyesno"),
                  [](MsgForm& form) {
                      QTest::keyClick(&form, Qt::Key_Escape);
                      QTest::keyClick(&form, Qt::Key_Y);
                      QTest::keyClick(&form, Qt::Key_Space);
                      form.close();
                      EXPECT_TRUE(form.isVisible());
                      click(form, 0);
                  }),
              6);
    EXPECT_FALSE(m_form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(m_form.windowTitle(), QStringLiteral("Message"));
}

TEST_F(MsgFormTest, TheResultCarriesOverUntilTheNextAnswer) {
    EXPECT_EQ(m_form.result(), 0);
    ask(QStringLiteral("m"), QStringLiteral("vbretrycancel"),
        [](MsgForm& form) { click(form, 1); });
    // A message left unanswered (closed some other way) returns the stored result.
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbyesno"), [](MsgForm&) {}), 2);
    EXPECT_FALSE(m_form.isVisible());
}

TEST_F(MsgFormTest, ACallWhileAMessageIsUpShowsNothingAndReturnsTheStoredResult) {
    ask(QStringLiteral("first"), QStringLiteral("vbyesno"), [](MsgForm& form) { click(form, 0); });
    EXPECT_EQ(ask(QStringLiteral("second"), QStringLiteral("vbok"),
                  [](MsgForm& form) {
                      EXPECT_EQ(form.MsgboxA(QStringLiteral("third"), QStringLiteral("vbnormal")),
                                6);
                      EXPECT_EQ(form.label()->text(), QStringLiteral("second"));
                      EXPECT_TRUE(form.isVisible());
                      click(form, 0);
                  }),
              1);
}

TEST_F(MsgFormTest, EachMessageStartsFromScratch) {
    ask(QStringLiteral("m"), QStringLiteral("vbexclamation+vbyesnocancel"),
        [](MsgForm& form) { click(form, 2); });
    ask(QStringLiteral("m"), QStringLiteral("vbhappy+vbok"), [](MsgForm& form) {
        EXPECT_EQ(shownIcons(form), QList<int>{5});
        EXPECT_EQ(shownCaptions(form), QStringList{QStringLiteral("Ok")});
        EXPECT_EQ(form.lastButton(), 0);
        click(form, 0);
    });
}

TEST_F(MsgFormTest, TheCustomSlotIsSelectedButShowsNoPicture) {
    m_form.setBackColor(packRgb(10, 200, 30));
    ask(QStringLiteral("m"), QStringLiteral("vbcustom"), [](MsgForm& form) {
        EXPECT_EQ(shownIcons(form), QList<int>{10});
        const QImage image = form.grab().toImage();
        const QRect iconArea(6, 6, 32, 32); // 90, 90, 480 x 480 twips
        for (int y = iconArea.top(); y <= iconArea.bottom(); y += 3) {
            for (int x = iconArea.left(); x <= iconArea.right(); x += 3)
                ASSERT_EQ(image.pixelColor(x, y), QColor(10, 200, 30)) << x << "," << y;
        }
        click(form, 0);
    });
}

TEST_F(MsgFormTest, ANarrowMessageGetsAWindowThreeButtonsWide) {
    m_form.prepare(QStringLiteral("Exit?"), QStringLiteral("vbok"));
    EXPECT_EQ(m_form.layout().windowWidth, 2655);
    EXPECT_EQ(m_form.layout().buttonLefts, QList<double>{885});
    EXPECT_EQ(m_form.button(0)->geometry(), QRect(59, m_form.layout().buttonTop / 15, 59, 23));
    EXPECT_FALSE(m_form.button(1)->isVisibleTo(&m_form));
    EXPECT_FALSE(m_form.button(2)->isVisibleTo(&m_form));
}

TEST_F(MsgFormTest, AWideMessageSetsTheWindowWidthFromItsText) {
    const QString text = QStringLiteral("A colour scheme called Harbour Lights could not be found");
    m_form.prepare(text, QStringLiteral("vbyesnocancel"));
    const QFontMetricsF metrics(m_form.label()->font());
    const int textWidth = int(std::ceil(metrics.horizontalAdvance(text))) * 15;
    ASSERT_GT(textWidth, 975);
    EXPECT_EQ(m_form.label()->width() * 15, textWidth);
    EXPECT_EQ(m_form.layout().windowWidth, 1680 + textWidth);
    const double first = (m_form.layout().windowWidth - 2655) / 2.0;
    EXPECT_EQ(m_form.layout().buttonLefts, (QList<double>{first, first + 885, first + 1770}));
    // The widest line counts, not the whole text.
    m_form.prepare(text + QStringLiteral("\nshort"), QStringLiteral("vbok"));
    EXPECT_EQ(m_form.layout().windowWidth, 1680 + textWidth);
}

TEST_F(MsgFormTest, ASecondLineMakesTheWindowTallerByOneLineHeight) {
    m_form.prepare(QStringLiteral("Configuration file:"), QStringLiteral("vbok"));
    const MsgLayout one = m_form.layout();
    const int lineHeight = m_form.lineHeight();
    EXPECT_GT(lineHeight, 0);
    EXPECT_EQ(lineHeight % 15, 0);
    m_form.prepare(QStringLiteral("Configuration file:\r\n/tmp/x"), QStringLiteral("vbok"));
    const MsgLayout two = m_form.layout();
    EXPECT_EQ(two.windowHeight - one.windowHeight, lineHeight);
    EXPECT_EQ(two.labelHeight - one.labelHeight, lineHeight);
    EXPECT_EQ(m_form.label()->text(), QStringLiteral("Configuration file:\n/tmp/x"));
    // A bigger font makes a taller line.
    m_form.setFontSize(18);
    m_form.prepare(QStringLiteral("x"), QStringLiteral("vbok"));
    EXPECT_GT(m_form.lineHeight(), lineHeight);
}

TEST_F(MsgFormTest, ColoursGivenToACallStayInForceAndMinusOneKeepsThem) {
    const quint32 sea = packRgb(30, 120, 200);
    const quint32 sand = packRgb(240, 220, 160);
    ask(
        QStringLiteral("m"), QStringLiteral("vbok"), [](MsgForm& form) { click(form, 0); }, sea,
        sand);
    ask(QStringLiteral("m"), QStringLiteral("vbyesno"), [&](MsgForm& form) {
        EXPECT_EQ(form.BackColor(), sea);
        EXPECT_EQ(form.ButtonColor(), sand);
        for (int i = 0; i < MsgButtonSlots; ++i)
            EXPECT_EQ(form.button(i)->BackColor(), sand);
        const QImage image = form.grab().toImage();
        EXPECT_EQ(image.pixelColor(2, 2), OleTranslateColor(sea));
        const QRect button = form.button(1)->geometry();
        EXPECT_EQ(image.pixelColor(button.left() + 3, button.center().y()),
                  OleTranslateColor(sand));
        click(form, 0);
    });
}

TEST_F(MsgFormTest, AttributesReachTheLabelAndTheButtons) {
    m_form.setFontName(QStringLiteral("Courier New"));
    m_form.setFontSize(11);
    m_form.setFontBold(true);
    m_form.setForeColor(packRgb(200, 0, 0));
    m_form.button(0)->setForeColor(packRgb(0, 0, 90));
    m_form.setBackColor(SystemButtonFace);
    m_form.prepare(QStringLiteral("m"), QStringLiteral("vbok"));
    const QFont labelFont = m_form.label()->font();
    EXPECT_EQ(labelFont.family(), QStringLiteral("Courier New"));
    EXPECT_DOUBLE_EQ(labelFont.pointSizeF(), 11);
    EXPECT_TRUE(labelFont.bold());
    EXPECT_EQ(m_form.label()->palette().color(QPalette::WindowText), QColor(200, 0, 0));
    const BoxControl* ok = m_form.button(0);
    EXPECT_EQ(ok->Font().family(), QStringLiteral("Courier New"));
    EXPECT_FLOAT_EQ(ok->FontSize(), 11);
    EXPECT_TRUE(ok->FontBold());
    EXPECT_EQ(ok->ForeColor(), packRgb(0, 0, 90));   // the text colour is left alone
    EXPECT_EQ(m_form.BackColor(), SystemButtonFace); // a system colour reads back as set
}

TEST_F(MsgFormTest, WithoutAHookTheWindowIsModalUntilAButtonAnswers) {
    m_form.setShowHook({});
    QTimer::singleShot(0, &m_form, [this] {
        EXPECT_TRUE(m_form.isVisible());
        EXPECT_TRUE(m_form.isModal());
        click(m_form, 1);
    });
    EXPECT_EQ(m_form.MsgboxA(QStringLiteral("Really?"), QStringLiteral("vbyesno")), 7);
    EXPECT_FALSE(m_form.isVisible());
}

} // namespace
