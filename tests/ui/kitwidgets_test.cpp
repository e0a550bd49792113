// The button control and the message window on a headless screen: geometry, press and
// release, answers by mouse and by Enter, and a rendered message window.
#include "ui/boxcontrol.h"
#include "ui/msgform.h"
#include "ui/olecolor.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

TEST(BoxControl, PictureCornerAndDarkEdges) {
    const QSize natural = BoxControl::himetricSize(QSize(16, 16));
    EXPECT_EQ(natural, QSize(423, 423));
    const QPointF corner = BoxControl::pictureCorner(330, 330, 423, 423);
    EXPECT_DOUBLE_EQ(corner.x(), 35.25);
    EXPECT_DOUBLE_EQ(corner.y(), 35.25);

    // An 885 x 345 button (59 x 23 px): white top/left edges, dark edges inset by 20 twips.
    BoxControl button;
    button.resize(59, 23);
    button.setBackColor(packedColour(QColor(200, 200, 200)));
    const QImage face = button.grab().toImage();
    EXPECT_EQ(face.pixelColor(0, 10), QColor(Qt::white));
    EXPECT_EQ(face.pixelColor(20, 0), QColor(Qt::white));
    const int darkX = 865 / 15, darkY = 325 / 15; // the pixels holding x = 865, y = 325
    EXPECT_EQ(face.pixelColor(darkX, 10), QColor(Qt::black));
    EXPECT_EQ(face.pixelColor(20, darkY), QColor(Qt::black));
    EXPECT_EQ(face.pixelColor(20, 10), QColor(200, 200, 200));
}

TEST(BoxControl, FrameShowsOnlyWhileHeldAndReleaseAnywhereRaisesMouseUp) {
    QWidget window;
    window.resize(200, 100);
    auto* button = new BoxControl(&window);
    button->setGeometry(10, 10, 59, 23);
    window.show();
    bool framedAtDown = false, framedAtUp = true;
    QObject::connect(button, &BoxControl::MouseDown, [&] { framedAtDown = button->isPressed(); });
    QObject::connect(button, &BoxControl::MouseUp, [&] { framedAtUp = button->isPressed(); });
    QSignalSpy up(button, &BoxControl::MouseUp);

    QTest::mousePress(button, Qt::RightButton, Qt::ShiftModifier, QPoint(5, 5));
    EXPECT_TRUE(framedAtDown);
    QTest::mouseRelease(button, Qt::RightButton, Qt::ShiftModifier, QPoint(150, 80)); // off it
    EXPECT_FALSE(framedAtUp);
    ASSERT_EQ(up.size(), 1);
    EXPECT_EQ(up[0][0].value<qint16>(), 2); // right button
    EXPECT_EQ(up[0][1].value<qint16>(), 1); // Shift
    EXPECT_FLOAT_EQ(up[0][2].toFloat(), 150 * 15.0f);
}

TEST(BoxControl, DisabledRaisesNothingAndLooksTheSame) {
    BoxControl button;
    button.resize(59, 23);
    button.setCaption(QStringLiteral("OK"));
    button.show();
    const QImage enabled = button.grab().toImage();
    QSignalSpy down(&button, &BoxControl::MouseDown);
    button.setEnabled(false);
    EXPECT_EQ(button.grab().toImage(), enabled);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(down.isEmpty());
}

TEST(BoxControl, SystemColoursReadBackUnchanged) {
    BoxControl button;
    EXPECT_EQ(button.BackColor(), SystemButtonFace);
    EXPECT_EQ(button.ForeColor(), SystemButtonText);
    button.setBackColor(0x80000012u);
    EXPECT_EQ(button.BackColor(), 0x80000012u);
    EXPECT_EQ(OleTranslateColor(SystemButtonFace),
              QApplication::palette().color(QPalette::Active, QPalette::Button));
    EXPECT_EQ(OleTranslateColor(0x0080FF00u), QColor(0, 255, 128));
}

// Answers the message window once it is up by releasing `button` on button `index`, or by
// pressing `key`.
void answerWhenShown(MsgForm& form, int index, Qt::MouseButton button = Qt::LeftButton) {
    QTimer::singleShot(0, &form,
                       [&form, index, button] { QTest::mouseClick(form.button(index), button); });
}

void pressWhenShown(MsgForm& form, Qt::Key key, bool thenClickFirst) {
    QTimer::singleShot(0, &form, [&form, key, thenClickFirst] {
        QTest::keyClick(&form, key);
        if (thenClickFirst && form.isVisible())
            QTest::mouseClick(form.button(0), Qt::LeftButton);
    });
}

TEST(MsgForm, AnswersByAnyMouseButtonAndKeepsTheResult) {
    MsgForm form;
    answerWhenShown(form, 0);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")), 6);
    answerWhenShown(form, 1, Qt::RightButton);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo")), 7);
    EXPECT_EQ(form.result(), 7);
    EXPECT_FALSE(form.isVisible());
}

TEST(MsgForm, EnterAnswersOnlyAnOkFirstButtonAndEscapeNothing) {
    MsgForm form;
    pressWhenShown(form, Qt::Key_Return, false);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Printed"), QStringLiteral("vbok+vbcancel")), 1);
    pressWhenShown(form, Qt::Key_Return, false);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Hi"), QStringLiteral("vbnormal")), 0);
    // With Cancel first Enter does nothing; the click that follows answers Cancel.
    pressWhenShown(form, Qt::Key_Return, true);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Hi"), QStringLiteral("vbcancel+vbok")), 2);
    pressWhenShown(form, Qt::Key_Escape, true);
    EXPECT_EQ(form.MsgboxA(QStringLiteral("Hi"), QStringLiteral("vbyesno")), 6);
}

TEST(MsgForm, LayoutFollowsTheTextAndShowsTheNamedIcon) {
    MsgForm form;
    form.prepare(QStringLiteral("Exit?"), QStringLiteral("vbQuestion + vbYesNo"));
    EXPECT_EQ(form.layoutSize().width(), 2655);
    EXPECT_TRUE(form.icon(0)->isVisibleTo(&form));
    EXPECT_FALSE(form.icon(4)->isVisibleTo(&form));
    EXPECT_TRUE(form.button(1)->isVisibleTo(&form));
    EXPECT_FALSE(form.button(2)->isVisibleTo(&form));
    const int oneLine = form.layoutSize().height();
    form.prepare(QStringLiteral("Exit?\r\nReally?"), QStringLiteral("vbok"));
    EXPECT_GT(form.layoutSize().height(), oneLine);
    EXPECT_FALSE(form.icon(0)->isVisibleTo(&form));

    form.setBackColor(packedColour(QColor(236, 233, 216)));
    form.setButtonColor(packedColour(QColor(214, 223, 247)));
    form.prepare(QStringLiteral("Unable to create a puzzle\r\nThe Dictionary may not have enough "
                                "words for this puzzle\r\nWill reinstate the words used already "
                                "...\r\nPlease try again"),
                 QStringLiteral("vbcritical+vbok"));
    form.show();
    form.grab().save(QStringLiteral("/tmp/pentalink-msgform.png"));
    EXPECT_EQ(form.button(0)->BackColor(), packedColour(QColor(214, 223, 247)));
    form.hide();
}

TEST(MsgForm, ColoursGivenToACallStayForLaterOnes) {
    MsgForm form;
    form.prepare(QStringLiteral("a"), QString(), 0x00FF00, 0x0000FF);
    EXPECT_EQ(form.BackColor(), 0x00FF00u);
    form.prepare(QStringLiteral("b"), QString(), -1, -1);
    EXPECT_EQ(form.BackColor(), 0x00FF00u);
    EXPECT_EQ(form.ButtonColor(), 0x0000FFu);
}

} // namespace
