// The message window and the Notifier on it, headless, answered through the show hook.
#include "ui/msgform.h"

#include "core/settings.h"
#include "ui/boxcontrol.h"
#include "ui/msgformnotifier.h"
#include "ui/msgicons.h"
#include "ui/olecolor.h"

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QSet>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Act = std::function<void(MsgForm&)>;

void click(MsgForm& form, int i, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(form.button(i), button, {}, QPoint(5, 5));
}

// Keys to the focused widget, a close request (which ends nothing), then a click on button i.
Act typed(std::initializer_list<Qt::Key> keys, int i = -1) {
    const QList<Qt::Key> list(keys);
    return [list, i](MsgForm& form) {
        for (const Qt::Key key : list)
            QTest::keyClick(form.focusWidget() ? form.focusWidget() : &form, key);
        form.close();
        if (i >= 0)
            click(form, i);
    };
}

class MsgFormTest : public ::testing::Test {
protected:
    int ask(const QString& typ, const Act& act, qint64 BGCol = -1, qint64 cmdcol = -1) {
        m_form.setShowHook([&](MsgForm& form) {
            EXPECT_TRUE(form.isVisible());
            act(form);
        });
        const int answer = m_form.MsgboxA(QStringLiteral("m"), typ, BGCol, cmdcol);
        m_form.setShowHook({});
        return answer;
    }

    MsgForm m_form;
};

TEST_F(MsgFormTest, AnyMouseButtonTabAndSpaceAnswerAndEnterOnlyAnOkFirstButton) {
    const std::tuple<const char*, Act, int> rows[] = {
        // style, action, answer
        {"vbQuestion + vbYesNo", [](MsgForm& f) { click(f, 1); }, 7},
        {"vbnormal", typed({Qt::Key_Return}), 0}, // 0, not the 7 stored before it
        {"vbok+vbcancel", typed({Qt::Key_Return}), 1},
        {"", typed({Qt::Key_Enter}), 1}, // keypad Enter
        {"vbcancel+vbok", typed({Qt::Key_Return, Qt::Key_Enter}, 0), 2},
        {"vbyesno", typed({Qt::Key_Return, Qt::Key_Escape, Qt::Key_Y, Qt::Key_Space}, 0), 6},
        {"vbokcancel", typed({Qt::Key_Escape, Qt::Key_O, Qt::Key_Space}, 1), 2}, // only Enter: Ok
        {"vbabortretryignore", [](MsgForm& f) { click(f, 2, Qt::MiddleButton); }, 5},
        // Tab moves the focus round the buttons; Space answers with it, Enter keeps its rule.
        {"vbQuestion + vbYesNo", typed({Qt::Key_Backtab, Qt::Key_Space}), 7},
        {"vbyesnocancel",
         typed({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}), 6},
        {"vbyesno", typed({Qt::Key_Tab, Qt::Key_Return}, 1), 7},
        {"vbretrycancel",
         [](MsgForm& f) { // released off the button
             QTest::mousePress(f.button(0), Qt::LeftButton, {}, QPoint(5, 5));
             QTest::mouseRelease(f.button(0), Qt::LeftButton, {}, QPoint(-40, 90));
         },
         4},
    };
    for (const auto& [typ, act, answer] : rows) {
        EXPECT_EQ(ask(QString::fromLatin1(typ), act), answer) << typ;
        EXPECT_FALSE(m_form.isVisible());
    }
    EXPECT_FALSE(m_form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(m_form.windowTitle(), QStringLiteral("Message"));
}

TEST_F(MsgFormTest, EachMessageShowsItsOwnIconsAndButtonsInOrder) {
    m_form.setBackColor(packRgb(10, 200, 30));
    m_form.prepare(QStringLiteral("m"), QStringLiteral("vbexclamation+vbyesnocancel"));
    m_form.prepare(QStringLiteral("m"), QStringLiteral("vbcustom+vbretrycancel"));
    QStringList shown; // icon slots, then button captions left to right
    int icons = 0;
    for (int i = 0; i < std::max(MsgIconSlots, MsgButtonSlots); ++i) {
        if (i < MsgIconSlots && m_form.icon(i)->isVisibleTo(&m_form))
            shown.insert(icons++, QString::number(i));
        if (i < MsgButtonSlots && m_form.button(i)->isVisibleTo(&m_form))
            shown << m_form.button(i)->Caption() + u'@' + QString::number(m_form.button(i)->x());
    }
    EXPECT_EQ(shown, (QStringList{"10", "Retry@30", "Cancel@89"}));
    EXPECT_EQ(m_form.lastButton(), 1);
    const QImage corner = m_form.grab().toImage().copy(6, 6, 32, 32); // the custom slot: plain
    int plain = 0;
    for (int p = 0; p < 32 * 32; ++p)
        plain += corner.pixelColor(p % 32, p / 32) == QColor(10, 200, 30);
    EXPECT_EQ(plain, 32 * 32);
}

TEST_F(MsgFormTest, TheResultCarriesOverToUnansweredAndNestedCalls) {
    EXPECT_EQ(m_form.result(), 0);
    ask(QStringLiteral("vbretrycancel"), [](MsgForm& form) { click(form, 1); });
    // Unanswered and nested calls return the stored result; a nested one shows nothing.
    EXPECT_EQ(ask(QStringLiteral("vbyesno"), [](MsgForm&) {}), 2);
    EXPECT_FALSE(m_form.isVisible());
    EXPECT_EQ(ask(QStringLiteral("vbok"),
                  [](MsgForm& form) {
                      EXPECT_EQ(form.MsgboxA(QStringLiteral("nested"), QStringLiteral("vbnormal")),
                                2);
                      EXPECT_EQ(form.label()->text(), QStringLiteral("m"));
                      click(form, 0);
                  }),
              1);
}

TEST_F(MsgFormTest, TheWindowIsAsWideAsTheWidestLineAndOneLineTallerPerLine) {
    m_form.prepare(QStringLiteral("Exit?"), QStringLiteral("vbok"));
    const MsgLayout one = m_form.layout();

    const QString text = QStringLiteral("A colour scheme called Harbour Lights could not be found");
    m_form.prepare(text + QStringLiteral("\r\nshort"), QStringLiteral("vbyesnocancel"));
    const QFontMetricsF metrics(m_form.label()->font());
    const int textWidth = int(std::ceil(metrics.horizontalAdvance(text))) * 15;
    ASSERT_GT(textWidth, 975);
    EXPECT_EQ(m_form.label()->width() * 15, textWidth);
    EXPECT_EQ(m_form.layout().windowWidth, 1680 + textWidth);
    EXPECT_EQ(m_form.label()->text(), text + QStringLiteral("\nshort"));
    const int lineHeight = m_form.lineHeight();
    EXPECT_EQ(m_form.layout().windowHeight - one.windowHeight, lineHeight);
    m_form.setFontSize(18); // a bigger font makes a taller line
    m_form.prepare(QStringLiteral("x"), QStringLiteral("vbok"));
    EXPECT_GT(m_form.lineHeight(), lineHeight);
}

TEST_F(MsgFormTest, ColoursGivenToACallStayInForceAndAttributesReachLabelAndButtons) {
    const quint32 sea = packRgb(30, 120, 200), sand = packRgb(240, 220, 160);
    ask(
        QStringLiteral("vbok"), [](MsgForm& form) { click(form, 0); }, sea, sand);
    ask(QStringLiteral("vbyesno"), [&](MsgForm& form) { // -1: the colours stay
        const QImage image = form.grab().toImage();
        EXPECT_EQ(image.pixelColor(2, 2), OleTranslateColor(sea));
        const QRect button = form.button(1)->geometry();
        EXPECT_EQ(image.pixelColor(button.left() + 3, button.center().y()),
                  OleTranslateColor(sand));
        click(form, 0);
    });

    m_form.setFontName(QStringLiteral("Courier New"));
    m_form.setFontBold(true);
    m_form.setForeColor(packRgb(200, 0, 0));
    m_form.prepare(QStringLiteral("m"), QStringLiteral("vbok"));
    for (const QFont& font : {m_form.label()->font(), m_form.button(0)->Font()})
        EXPECT_TRUE(font.bold() && font.family() == QStringLiteral("Courier New"));
    EXPECT_EQ(m_form.label()->palette().color(QPalette::WindowText), QColor(200, 0, 0));
    EXPECT_EQ(m_form.button(0)->ForeColor(), packRgb(200, 0, 0)); // the message's text colour
}

TEST_F(MsgFormTest, WithoutAHookTheWindowIsModalUntilAButtonAnswers) {
    QTimer::singleShot(0, &m_form, [this] {
        EXPECT_TRUE(m_form.isVisible());
        EXPECT_TRUE(m_form.isModal());
        click(m_form, 1);
    });
    EXPECT_EQ(m_form.MsgboxA(QStringLiteral("Really?"), QStringLiteral("vbyesno")), 7);
    EXPECT_FALSE(m_form.isVisible());
}

TEST(MsgIcons, NineDistinctPicturesInTheSixteenColoursNoneOutsideTheSlots) {
    QSet<QByteArray> seen;
    for (int slot = 0; slot <= 8; ++slot) {
        const QImage image = msgIcon(slot);
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        for (const QColor pixel : {image.pixelColor(16, 16), image.pixelColor(0, 0)})
            EXPECT_TRUE(pixel.alpha() == 0 || msgIconPalette().contains(pixel)) << slot;
    }
    EXPECT_EQ(seen.size(), 9);
    EXPECT_TRUE(msgIcon(-1).isNull() && msgIcon(9).isNull());
}

TEST(MsgFormNotifier, MessagesGoThroughTheWindowStandardBoxesAndInputBoxesAnswerAsChosen) {
    MsgForm form;
    MsgFormNotifier notifier{form};
    form.setShowHook([](MsgForm& shown) { click(shown, 1); });
    EXPECT_EQ(notifier.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")),
              AnswerNo);
    EXPECT_EQ(form.label()->text(), QStringLiteral("Exit?"));

    notifier.setStandardBoxHook([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle() + box.text(), QStringLiteral("PentalinkReplace: sea"));
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        ASSERT_EQ(box.buttons().size(), 2);
        QTest::keyClick(&box, Qt::Key_Escape); // No
    });
    EXPECT_EQ(notifier.standardBox(QStringLiteral("Replace: sea"),
                                   QStringLiteral("vbquestion+vbyesno"),
                                   QStringLiteral("Pentalink")),
              AnswerNo);
    notifier.setStandardBoxHook([](QMessageBox& box) { box.reject(); }); // closed without a button
    EXPECT_EQ(notifier.standardBox(QStringLiteral("Lost"), QStringLiteral("vbcritical"), {}),
              AnswerNone);
    for (const bool accept : {true, false}) {
        notifier.setInputBoxHook([accept](QInputDialog& box) {
            EXPECT_EQ(box.windowTitle() + box.labelText(), QStringLiteral("PentalinkName?"));
            EXPECT_TRUE(box.textValue().isEmpty());
            box.setTextValue(QStringLiteral("Ocean"));
            accept ? box.accept() : box.reject();
        });
        EXPECT_EQ(notifier.inputBox(QStringLiteral("Name?"), QStringLiteral("Pentalink")),
                  accept ? QStringLiteral("Ocean") : QString());
    }
}

} // namespace
