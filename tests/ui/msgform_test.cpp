// The message window, headless: style, layout measured in the real font, the answers by
// mouse and Enter, colours that stay in force, the result that carries over, its icon
// pictures, and the Notifier built on it. Messages are answered through the show hook, so no
// modal loop runs except in the one test about it.
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

// Keys that must not answer, then a click on button i.
Act keysThenClick(std::initializer_list<Qt::Key> keys, int i) {
    const QList<Qt::Key> list(keys);
    return [list, i](MsgForm& form) {
        for (const Qt::Key key : list)
            QTest::keyClick(&form, key);
        form.close(); // no close request ends a message either
        EXPECT_TRUE(form.isVisible());
        click(form, i);
    };
}

// Keys as a player types them, each to the widget that has the window's focus; then, unless
// `i` is -1, a click on button i.
Act typed(std::initializer_list<Qt::Key> keys, int i = -1) {
    const QList<Qt::Key> list(keys);
    return [list, i](MsgForm& form) {
        for (const Qt::Key key : list) {
            QWidget* target = form.focusWidget() ? form.focusWidget() : &form;
            QTest::keyClick(target, key);
        }
        if (i >= 0)
            click(form, i);
    };
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

TEST_F(MsgFormTest, AnyMouseButtonTabAndSpaceAnswerAndEnterOnlyAnOkFirstButton) {
    const struct {
        const char* typ;
        Act act;
        int answer;
    } rows[] = {
        {"vbQuestion + vbYesNo", [](MsgForm& f) { click(f, 0); }, 6},
        {"vbQuestion + vbYesNo", [](MsgForm& f) { click(f, 1); }, 7},
        // "vbnormal" answers 0, not the 7 stored before it.
        {"vbnormal", [](MsgForm& f) { QTest::keyClick(&f, Qt::Key_Return); }, 0},
        {"vbnormal", [](MsgForm& f) { click(f, 0); }, 0},
        {"vbok+vbcancel", [](MsgForm& f) { QTest::keyClick(&f, Qt::Key_Return); }, 1},
        {"", [](MsgForm& f) { QTest::keyClick(&f, Qt::Key_Enter); }, 1}, // keypad Enter
        {"vbcancel+vbok", keysThenClick({Qt::Key_Return, Qt::Key_Enter}, 0), 2},
        {"vbyesno", keysThenClick({Qt::Key_Return, Qt::Key_Escape, Qt::Key_Y, Qt::Key_Space}, 0),
         6},
        {"vbyesnocancel", [](MsgForm& f) { click(f, 1, Qt::RightButton); }, 7},
        {"vbabortretryignore", [](MsgForm& f) { click(f, 2, Qt::MiddleButton); }, 5},
        // Tab moves the focus through the buttons, wrapping round; Space answers with it.
        {"vbQuestion + vbYesNo", typed({Qt::Key_Tab, Qt::Key_Space}), 6},
        {"vbQuestion + vbYesNo", typed({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}), 7},
        {"vbQuestion + vbYesNo", typed({Qt::Key_Backtab, Qt::Key_Space}), 7},
        {"vbyesnocancel",
         typed({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}), 6},
        // Enter keeps its rule: on a focused "Yes" it does nothing, on "Cancel" before "Ok"
        // it answers "Ok".
        {"vbyesno", typed({Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape}, 1), 7},
        {"vbok+vbcancel", typed({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}), 1},
        {"vbretrycancel",
         [](MsgForm& f) { // released off the button
             QTest::mousePress(f.button(0), Qt::LeftButton, {}, QPoint(5, 5));
             QTest::mouseRelease(f.button(0), Qt::LeftButton, {}, QPoint(-40, 90));
         },
         4},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ask(QStringLiteral("m"), QString::fromLatin1(row.typ), row.act), row.answer)
            << row.typ;
        EXPECT_FALSE(m_form.isVisible());
    }
    EXPECT_FALSE(m_form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(m_form.windowTitle(), QStringLiteral("Message"));
}

TEST_F(MsgFormTest, EachMessageShowsItsOwnIconsAndButtonsInOrder) {
    m_form.setBackColor(packRgb(10, 200, 30));
    const struct {
        const char* typ;
        QList<int> icons;
        QStringList captions;
    } rows[] = {
        {"vbQuestion + vbYesNo", {0}, {"Yes", "No"}},
        {"vbexclamation+vbyesnocancel", {1}, {"Yes", "No", "Cancel"}},
        {"vbhappy+vbok", {5}, {"Ok"}},
        {"", {}, {"Ok"}},
        {"vbcustom", {10}, {"Ok"}},
    };
    for (const auto& row : rows) {
        m_form.prepare(QStringLiteral("m"), QString::fromLatin1(row.typ));
        EXPECT_EQ(shownIcons(m_form), row.icons) << row.typ;
        EXPECT_EQ(shownCaptions(m_form), row.captions) << row.typ;
        EXPECT_EQ(m_form.lastButton(), row.captions.size() - 1) << row.typ;
        for (int i = 1; i < row.captions.size(); ++i)
            EXPECT_LT(m_form.button(i - 1)->x(), m_form.button(i)->x()) << row.typ;
    }
    // The custom slot is selected but shows no picture: 90, 90, 480 x 480 twips stay plain.
    ask(QStringLiteral("m"), QStringLiteral("vbcustom"), [](MsgForm& form) {
        const QImage image = form.grab().toImage();
        for (int y = 6; y < 38; y += 3) {
            for (int x = 6; x < 38; x += 3)
                ASSERT_EQ(image.pixelColor(x, y), QColor(10, 200, 30)) << x << "," << y;
        }
        click(form, 0);
    });
}

TEST_F(MsgFormTest, TheResultCarriesOverToUnansweredAndNestedCalls) {
    EXPECT_EQ(m_form.result(), 0);
    ask(QStringLiteral("m"), QStringLiteral("vbretrycancel"),
        [](MsgForm& form) { click(form, 1); });
    // A message left unanswered (closed some other way) returns the stored result.
    EXPECT_EQ(ask(QStringLiteral("m"), QStringLiteral("vbyesno"), [](MsgForm&) {}), 2);
    EXPECT_FALSE(m_form.isVisible());
    // A call while a message is up shows nothing and returns the stored result.
    EXPECT_EQ(ask(QStringLiteral("second"), QStringLiteral("vbok"),
                  [](MsgForm& form) {
                      EXPECT_EQ(form.MsgboxA(QStringLiteral("third"), QStringLiteral("vbnormal")),
                                2);
                      EXPECT_EQ(form.label()->text(), QStringLiteral("second"));
                      EXPECT_TRUE(form.isVisible());
                      click(form, 0);
                  }),
              1);
}

TEST_F(MsgFormTest, TheWindowIsAtLeastThreeButtonsWideAndAsWideAsTheWidestLine) {
    m_form.prepare(QStringLiteral("Exit?"), QStringLiteral("vbok"));
    EXPECT_EQ(m_form.layout().windowWidth, 2655);
    EXPECT_EQ(m_form.button(0)->geometry(), QRect(59, m_form.layout().buttonTop / 15, 59, 23));

    const QString text = QStringLiteral("A colour scheme called Harbour Lights could not be found");
    m_form.prepare(text, QStringLiteral("vbyesnocancel"));
    const QFontMetricsF metrics(m_form.label()->font());
    const int textWidth = int(std::ceil(metrics.horizontalAdvance(text))) * 15;
    ASSERT_GT(textWidth, 975);
    EXPECT_EQ(m_form.label()->width() * 15, textWidth);
    EXPECT_EQ(m_form.layout().windowWidth, 1680 + textWidth);
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
    EXPECT_EQ(m_form.layout().windowHeight - one.windowHeight, lineHeight);
    EXPECT_EQ(m_form.layout().labelHeight - one.labelHeight, lineHeight);
    EXPECT_EQ(m_form.label()->text(), QStringLiteral("Configuration file:\n/tmp/x"));
    m_form.setFontSize(18); // a bigger font makes a taller line
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
    EXPECT_EQ(ok->ForeColor(), packRgb(200, 0, 0)); // the message's text colour
    EXPECT_EQ(m_form.BackColor(), SystemButtonFace); // a system colour reads back as set
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

// Every pixel is transparent or one of the sixteen colours; returns the number of opaque ones.
int checkColours(const QImage& image) {
    QSet<QRgb> allowed;
    for (const QColor& c : msgIconPalette())
        allowed.insert(c.rgb());
    int opaque = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) == 0)
                continue;
            EXPECT_EQ(qAlpha(pixel), 255) << x << "," << y;
            EXPECT_TRUE(allowed.contains(pixel | 0xFF000000u))
                << x << "," << y << " " << QColor(pixel).name().toStdString();
            ++opaque;
        }
    }
    return opaque;
}

TEST(MsgIcons, SixteenPaletteColoursMakeNineDistinctPicturesTheFirstFiveAlsoSmall) {
    EXPECT_EQ(msgIconPalette().size(), 16);
    QSet<QByteArray> seen;
    for (int slot = 0; slot <= 8; ++slot) {
        SCOPED_TRACE(slot);
        const QImage image = msgIcon(slot);
        ASSERT_EQ(image.size(), QSize(32, 32));
        // A real picture: a good part of the square is painted, but not all of it.
        const int opaque = checkColours(image);
        EXPECT_GT(opaque, 250);
        EXPECT_LT(opaque, 32 * 32);
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        const QImage small = msgIcon(slot, 16);
        if (slot <= 4) {
            ASSERT_EQ(small.size(), QSize(16, 16));
            EXPECT_GT(checkColours(small), 60);
        } else {
            EXPECT_TRUE(small.isNull());
        }
    }
    EXPECT_EQ(seen.size(), 9);
}

TEST(MsgIcons, OtherSlotsAndSizesHaveNoPicture) {
    for (const int slot : {-1, 9, 10, 11})
        EXPECT_TRUE(msgIcon(slot).isNull()) << slot;
    EXPECT_TRUE(msgIcon(0, 24).isNull());
}

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

TEST(MsgFormNotifier, InputBoxGivesTheTextTypedOrNothingOnCancel) {
    MsgForm form;
    MsgFormNotifier notifier{form};
    for (const bool accept : {true, false}) {
        notifier.setInputBoxHook([accept](QInputDialog& box) {
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Pentalink"));
            EXPECT_EQ(box.labelText(), QStringLiteral("Enter new Color Scheme name"));
            EXPECT_TRUE(box.textValue().isEmpty());
            box.setTextValue(QStringLiteral("Ocean"));
            accept ? box.accept() : box.reject();
        });
        EXPECT_EQ(notifier.inputBox(QStringLiteral("Enter new Color Scheme name"),
                                    QStringLiteral("Pentalink")),
                  accept ? QStringLiteral("Ocean") : QString());
    }
}

} // namespace
