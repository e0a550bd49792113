// The self-drawn push button, headless: its face, pressed frame, events and properties.
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
    QPalette palette;
    const QPalette::ColorRole roles[] = {QPalette::Base, QPalette::Button, QPalette::ButtonText,
                                         QPalette::Window};
    for (int i = 0; i < 4; ++i)
        palette.setColor(QPalette::Active, roles[i], QColor(i + 1, i + 1, i + 1));
    palette.setColor(QPalette::Inactive, QPalette::Window, Qt::red); // the active group counts
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

// Logs "down|up button shift x y", "framed" when the pressed frame shows at that moment.
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
    BoxControl& make(int w, int h) { return m_button.resize(w, h), m_button; }
    BoxControl m_button;
    QStringList m_heard;
};

TEST_F(BoxControlTest, EdgesAndPictureLandOnWholePixels) {
    const QImage answer = faceOf(make(59, 23)); // 885 x 345 twips: dark edges at 865 and 325
    QPixmap picture(16, 16);
    picture.fill(Qt::magenta);
    make(22, 22).setPicture(picture); // 330 x 330 twips: corner at 35.25, pixel 2, over edges
    const QImage pictured = faceOf(m_button);
    const std::tuple<const QImage&, int, int, QColor> probes[] = {
        {answer, 0, 21, Qt::white}, {answer, 57, 0, Qt::white},    {answer, 57, 1, Qt::black},
        {answer, 1, 21, Qt::black}, {answer, 58, 11, Face},        {answer, 30, 22, Face},
        {pictured, 1, 2, Face},     {pictured, 2, 2, Qt::magenta}, {pictured, 17, 17, Qt::magenta},
        {pictured, 18, 18, Face},   {pictured, 20, 10, Qt::black}};
    for (const auto& [image, x, y, colour] : probes)
        EXPECT_EQ(image.pixelColor(x, y), colour) << x << "," << y;
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
    EXPECT_EQ(m_heard, (QStringList{"down 1 0 150 75 framed", "up 1 0 3000 1350"}));

    const std::tuple<Qt::MouseButton, Qt::KeyboardModifiers, QString> rows[] = {
        {Qt::MiddleButton, Qt::ShiftModifier, "4 1"},
        {Qt::RightButton, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier, "2 7"}};
    for (const auto& [button, modifiers, codes] : rows) {
        m_heard.clear();
        QTest::mouseClick(&m_button, button, modifiers, QPoint(3, 3));
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
