// The self-drawn push button, headless: its painted face, the pressed frame, the MouseDown /
// MouseUp events under the mouse, its properties, and the colours it paints with.
#include "ui/boxcontrol.h"

#include "core/settings.h"
#include "ui/olecolor.h"

#include <QApplication>
#include <QPalette>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QColor Face(200, 210, 220);

QImage faceOf(BoxControl& button) {
    return button.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

TEST(OleTranslateColor, PlainColoursPassUnchangedSystemColoursComeFromThePalette) {
    EXPECT_EQ(OleTranslateColor(packRgb(10, 128, 250)), QColor(10, 128, 250));
    EXPECT_EQ(OleTranslateColor(0xFFFFFF), QColor(255, 255, 255));
    EXPECT_EQ(packedColour(QColor(1, 2, 3)), packRgb(1, 2, 3));
    QPalette palette;
    const QPalette::ColorRole roles[] = {QPalette::Base, QPalette::Button, QPalette::ButtonText,
                                         QPalette::Highlight, QPalette::ToolTipBase};
    for (int i = 0; i < 5; ++i)
        palette.setColor(QPalette::Active, roles[i], QColor(i + 1, i + 1, i + 1));
    EXPECT_EQ(OleTranslateColor(0x80000005u, palette), QColor(1, 1, 1));   // window background
    EXPECT_EQ(OleTranslateColor(0x8000000Fu, palette), QColor(2, 2, 2));   // button face
    EXPECT_EQ(OleTranslateColor(0x80000012u, palette), QColor(3, 3, 3));   // button text
    EXPECT_EQ(OleTranslateColor(0x8000000Du, palette), QColor(4, 4, 4));   // highlight
    EXPECT_EQ(OleTranslateColor(0x80000018u, palette), QColor(5, 5, 5));   // info background
    EXPECT_EQ(OleTranslateColor(0x800000FFu, palette), QColor(Qt::black)); // no such colour
}

// A button of `w` x `h` pixels with a plain face colour.
class BoxControlTest : public ::testing::Test {
protected:
    BoxControl& make(int w, int h) {
        m_button.resize(w, h);
        m_button.setBackColor(packRgb(200, 210, 220));
        return m_button;
    }
    BoxControl m_button;
};

TEST_F(BoxControlTest, AnswerButtonHasItsDarkEdgesOnePixelInside) {
    const QImage image = faceOf(make(59, 23)); // 885 x 345 twips
    for (int y = 1; y <= 21; ++y) {
        EXPECT_EQ(image.pixelColor(57, y), QColor(Qt::black)) << y;
        EXPECT_EQ(image.pixelColor(58, y), Face) << y;
        EXPECT_EQ(image.pixelColor(0, y), QColor(Qt::white)) << y;
    }
    for (int x = 1; x <= 57; ++x) {
        EXPECT_EQ(image.pixelColor(x, 21), QColor(Qt::black)) << x;
        EXPECT_EQ(image.pixelColor(x, 22), Face) << x;
        EXPECT_EQ(image.pixelColor(x, 0), QColor(Qt::white)) << x;
    }
    EXPECT_EQ(image.pixelColor(30, 11), Face); // no caption
}

TEST_F(BoxControlTest, PictureCornerFollowsItsNaturalSize) {
    BoxControl& button = make(22, 22); // 330 x 330 twips
    QPixmap picture(16, 16);
    picture.fill(Qt::magenta);
    button.setPicture(picture);
    const QImage image = faceOf(button);
    // Corner at 35.25 twips: pixel 2; the picture is painted over the edges.
    EXPECT_EQ(image.pixelColor(1, 2), Face);
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(17, 17), QColor(Qt::magenta));
    EXPECT_EQ(image.pixelColor(18, 18), Face);
    EXPECT_EQ(image.pixelColor(20, 10), QColor(Qt::black)); // dark edge at 310 twips
}

TEST_F(BoxControlTest, CaptionIsCentredInTheForeColour) {
    BoxControl& button = make(59, 23);
    button.setForeColor(packRgb(255, 0, 0));
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(9);
    button.setControlFont(font);
    button.setCaption(QStringLiteral("Cancel"));
    const QImage image = faceOf(button);
    QRect ink;
    for (int y = 1; y < 21; ++y) {
        for (int x = 1; x < 57; ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() > c.green() + 60) // reddish: caption ink, smoothed or not
                ink |= QRect(x, y, 1, 1);
        }
    }
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_NEAR((ink.left() + ink.right() + 1) / 2.0, 59 / 2.0, 1.5);
    EXPECT_NEAR(ink.width(), QFontMetricsF(font).horizontalAdvance(QStringLiteral("Cancel")), 2.0);
    EXPECT_GE(ink.top(), 4);
    EXPECT_LE(ink.bottom(), 18);
}

TEST_F(BoxControlTest, SystemColoursReadBackUnchangedAndPaintFromThePalette) {
    BoxControl& button = make(40, 20);
    EXPECT_EQ(BoxControl().BackColor(), SystemButtonFace);
    EXPECT_EQ(BoxControl().ForeColor(), SystemButtonText);
    button.setBackColor(0x80000012u);
    EXPECT_EQ(button.BackColor(), 0x80000012u);
    EXPECT_EQ(faceOf(button).pixelColor(20, 10),
              QApplication::palette().color(QPalette::Active, QPalette::ButtonText));
    button.setBackColor(SystemButtonFace);
    EXPECT_EQ(faceOf(button).pixelColor(20, 10),
              QApplication::palette().color(QPalette::Active, QPalette::Button));
}

TEST_F(BoxControlTest, FontSizeZeroIsKeptButLeavesTheFontAndAWholeFontReplacesAll) {
    BoxControl& button = make(40, 20);
    button.setFontBold(true);
    button.setFontItalic(true);
    button.setFontSize(7.5f);
    EXPECT_DOUBLE_EQ(button.Font().pointSizeF(), 7.5);
    EXPECT_TRUE(button.Font().bold() && button.Font().italic());
    button.setFontSize(0);
    EXPECT_FLOAT_EQ(button.FontSize(), 0.0f);
    EXPECT_DOUBLE_EQ(button.Font().pointSizeF(), 7.5);
    QFont whole(QStringLiteral("Courier New"));
    whole.setPointSizeF(12);
    button.setControlFont(whole);
    EXPECT_EQ(button.Font().family(), QStringLiteral("Courier New"));
    EXPECT_FLOAT_EQ(button.FontSize(), 12.0f);
    EXPECT_FALSE(button.FontBold());
}

// Logs each event as "down|up button shift x y", with "framed" when the container sees the
// pressed frame at that moment.
class BoxControlMouse : public BoxControlTest {
protected:
    void SetUp() override {
        make(59, 23);
        m_button.show();
        const auto record = [this](const char* name) {
            return [this, name](qint16 button, qint16 shift, float x, float y) {
                const bool framed = faceOf(m_button).pixelColor(58, 11) == QColor(Qt::black);
                m_heard.append(QStringLiteral("%1 %2 %3 %4 %5%6")
                                   .arg(QLatin1String(name))
                                   .arg(button)
                                   .arg(shift)
                                   .arg(x)
                                   .arg(y)
                                   .arg(framed ? " framed" : ""));
            };
        };
        QObject::connect(&m_button, &BoxControl::MouseDown, record("down"));
        QObject::connect(&m_button, &BoxControl::MouseUp, record("up"));
    }
    QStringList m_heard;
};

TEST_F(BoxControlMouse, FrameShowsBeforeMouseDownAndGoesBeforeMouseUpEvenOffTheButton) {
    QTest::mousePress(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_TRUE(m_button.isPressed());
    QTest::mouseMove(&m_button, QPoint(200, 90));
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(200, 90));
    EXPECT_FALSE(m_button.isPressed());
    // Positions in twips, relative to the control.
    EXPECT_EQ(m_heard, (QStringList{"down 1 0 150 75 framed", "up 1 0 3000 1350"}));
}

TEST_F(BoxControlMouse, EveryMouseButtonAndModifierIsReported) {
    const struct {
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
        const char* codes;
    } rows[] = {
        {Qt::RightButton, {}, "2 0"},
        {Qt::MiddleButton, Qt::ShiftModifier, "4 1"},
        {Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier, "1 6"},
        {Qt::RightButton, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier, "2 7"},
    };
    for (const auto& row : rows) {
        m_heard.clear();
        QTest::mousePress(&m_button, row.button, row.modifiers, QPoint(3, 3));
        QTest::mouseRelease(&m_button, row.button, row.modifiers, QPoint(3, 3));
        const QString codes = QString::fromLatin1(row.codes);
        EXPECT_EQ(m_heard,
                  (QStringList{"down " + codes + " 45 45 framed", "up " + codes + " 45 45"}));
    }
}

TEST_F(BoxControlMouse, ADisabledButtonRaisesNothingLooksTheSameAndDropsAHeldFrame) {
    m_button.setCaption(QStringLiteral("Ok"));
    const QImage enabled = faceOf(m_button);
    QTest::mousePress(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    ASSERT_TRUE(m_button.isPressed());
    m_button.setEnabled(false);
    EXPECT_FALSE(m_button.Enabled());
    EXPECT_FALSE(m_button.isPressed());
    EXPECT_EQ(faceOf(m_button), enabled);
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    QTest::mousePress(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_EQ(m_heard.size(), 1); // only the first press
    EXPECT_EQ(faceOf(m_button), enabled);
    m_button.setEnabled(true);
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_EQ(m_heard.size(), 1); // the release after re-enabling follows no press
}

} // namespace
