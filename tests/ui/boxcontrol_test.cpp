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

struct Probe {
    int x, y;
    QColor colour;
};

QImage faceOf(BoxControl& button) {
    return button.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

TEST(OleTranslateColor, PlainColoursPassUnchangedSystemColoursComeFromThePalette) {
    QPalette palette;
    const QPalette::ColorRole roles[] = {QPalette::Base, QPalette::Button, QPalette::ButtonText,
                                         QPalette::Window};
    for (int i = 0; i < 4; ++i)
        palette.setColor(QPalette::Active, roles[i], QColor(i + 1, i + 1, i + 1));
    // Window background, button face, button text, menu bar (the last), no such colour.
    const std::pair<quint32, QColor> rows[] = {{packRgb(10, 128, 250), QColor(10, 128, 250)},
                                               {0x80000005u, QColor(1, 1, 1)},
                                               {0x8000000Fu, QColor(2, 2, 2)},
                                               {0x80000012u, QColor(3, 3, 3)},
                                               {0x8000001Eu, QColor(4, 4, 4)},
                                               {0x8000001Fu, Qt::black}};
    for (const auto& [colour, shown] : rows)
        EXPECT_EQ(OleTranslateColor(colour, palette), shown) << colour;
    EXPECT_EQ(packedColour(QColor(1, 2, 3)), packRgb(1, 2, 3));
}

// A button with a plain face colour that logs each event as "down|up button shift x y",
// with "framed" when the container sees the pressed frame at that moment.
class BoxControlTest : public ::testing::Test {
protected:
    BoxControlTest() {
        m_button.setBackColor(packRgb(200, 210, 220));
        for (const auto& [signal, name] :
             {std::pair{&BoxControl::MouseDown, "down"}, std::pair{&BoxControl::MouseUp, "up"}}) {
            QObject::connect(&m_button, signal, [this, name](qint16 b, qint16 s, float x, float y) {
                const bool framed = faceOf(m_button).pixelColor(58, 11) == QColor(Qt::black);
                m_heard << QString::asprintf("%s %d %d %g %g%s", name, b, s, x, y,
                                             framed ? " framed" : "");
            });
        }
    }
    BoxControl& make(int w, int h) {
        m_button.resize(w, h);
        return m_button;
    }
    BoxControl m_button;
    QStringList m_heard;
};

TEST_F(BoxControlTest, EdgesAndPictureLandOnWholePixels) {
    const QColor white(Qt::white), black(Qt::black), magenta(Qt::magenta);
    const QImage answer = faceOf(make(59, 23)); // 885 x 345 twips: dark edges at 865 and 325
    const Probe onAnswer[] = {{0, 21, white}, {57, 0, white}, {57, 1, black},
                              {1, 21, black}, {58, 11, Face}, {30, 22, Face}};
    for (const auto& p : onAnswer)
        EXPECT_EQ(answer.pixelColor(p.x, p.y), p.colour) << p.x << "," << p.y;

    QPixmap picture(16, 16);
    picture.fill(Qt::magenta);
    make(22, 22).setPicture(picture); // 330 x 330 twips
    const QImage pictured = faceOf(m_button);
    // Corner at 35.25 twips: pixel 2; the picture is painted over the edges.
    const Probe onPictured[] = {
        {1, 2, Face}, {2, 2, magenta}, {17, 17, magenta}, {18, 18, Face}, {20, 10, black}};
    for (const auto& p : onPictured)
        EXPECT_EQ(pictured.pixelColor(p.x, p.y), p.colour) << p.x << "," << p.y;
}

TEST_F(BoxControlTest, CaptionIsCentredInTheForeColour) {
    make(59, 23).setForeColor(packRgb(255, 0, 0));
    m_button.setCaption(QStringLiteral("Cancel"));
    const QImage image = faceOf(m_button);
    QRect ink;
    for (int y = 1; y < 21; ++y) {
        for (int x = 1; x < 57; ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.red() > c.green() + 60) // reddish: caption ink, smoothed or not
                ink |= QRect(x, y, 1, 1);
        }
    }
    ASSERT_GT(ink.width(), 10);
    EXPECT_NEAR((ink.left() + ink.right() + 1) / 2.0, 59 / 2.0, 1.5);
    EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0, 23 / 2.0, 3.5);
}

TEST_F(BoxControlTest, PropertiesReadBackAsSetSystemColoursPaintFromThePalette) {
    BoxControl& button = make(40, 20);
    EXPECT_EQ(BoxControl().ForeColor(), SystemButtonText);
    button.setBackColor(0x80000012u);
    EXPECT_EQ(button.BackColor(), 0x80000012u);
    EXPECT_EQ(faceOf(button).pixelColor(20, 10),
              QApplication::palette().color(QPalette::Active, QPalette::ButtonText));

    // A size of 0 is kept but leaves the font; a whole font replaces size and style.
    button.setFontBold(true);
    button.setFontItalic(true);
    button.setFontSize(7.5f);
    button.setFontSize(0);
    EXPECT_TRUE(button.Font().bold() && button.Font().italic());
    EXPECT_FLOAT_EQ(button.FontSize(), 0.0f);
    EXPECT_DOUBLE_EQ(button.Font().pointSizeF(), 7.5);
    QFont whole(QStringLiteral("Courier New"));
    whole.setPointSizeF(12);
    button.setControlFont(whole);
    EXPECT_FLOAT_EQ(button.FontSize(), 12.0f);
    EXPECT_FALSE(button.FontBold());
}

TEST_F(BoxControlTest, FrameShowsBeforeMouseDownAndGoesBeforeMouseUpEvenOffTheButton) {
    make(59, 23).show();
    QTest::mousePress(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_TRUE(m_button.isPressed());
    QTest::mouseMove(&m_button, QPoint(200, 90));
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(200, 90));
    EXPECT_FALSE(m_button.isPressed());
    // Positions in twips, relative to the control.
    EXPECT_EQ(m_heard, (QStringList{"down 1 0 150 75 framed", "up 1 0 3000 1350"}));

    const struct {
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
        const char* codes;
    } rows[] = {
        {Qt::MiddleButton, Qt::ShiftModifier, "4 1"},
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

TEST_F(BoxControlTest, ADisabledButtonRaisesNothingLooksTheSameAndDropsAHeldFrame) {
    make(59, 23).show();
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
    EXPECT_EQ(faceOf(m_button), enabled);
    m_button.setEnabled(true);
    QTest::mouseRelease(&m_button, Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_EQ(m_heard.size(), 1); // only the first press; the last release follows no press
}

} // namespace
