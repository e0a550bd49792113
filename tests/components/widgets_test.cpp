// The clock and scores widgets, headless: painting, labels and the buttons under the mouse.
#include "components/dc.h"
#include "components/scoresbox.h"
#include "core/settings.h"

#include "manualticks.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QColor rgb(quint32 packed) {
    return QColor(packed & 0xff, (packed >> 8) & 0xff, (packed >> 16) & 0xff);
}

TEST(DcWidget, PaintsLitAndUnlitSegmentsAtTheirPlaces) {
    auto ticks = std::make_unique<ManualTicks>();
    ManualTicks* source = ticks.get();
    Dc dc(nullptr, std::move(ticks));
    QSignalSpy expired(&dc, &Dc::ClockExpired);
    dc.setClockIncrement(-1);
    dc.setClockStartValue(126);
    dc.StartCountdown();
    source->tick(); // 02:05

    const QImage image = dc.grab().toImage();
    EXPECT_EQ(image.size(), QSize(109, 39));
    // Top bar of the "2" (x 510..630, y 90 twips) lit; middle bar of the "0" unlit.
    EXPECT_EQ(image.pixelColor(38, 6), rgb(packRgb(0, 244, 0)));
    EXPECT_EQ(image.pixelColor(13, 19), rgb(packRgb(0, 100, 0)));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::black));

    dc.setClockStartValue(0);
    source->tick();
    EXPECT_EQ(expired.count(), 1);
}

class ScoresBoxTest : public ::testing::Test {
protected:
    // The counters, this session's then all sessions', each played, won, drawn, lost.
    QString labels() const {
        QStringList texts;
        for (const char* column : {"ThisSession", "AllSessions"})
            for (int row = 1; row <= 4; ++row) {
                const auto* label = box.findChild<QLabel*>(column + QString::number(row));
                texts << (label ? label->text() : QStringLiteral("<missing>"));
            }
        return texts.join(u' ');
    }
    QPushButton* button(const char* name) const {
        return box.findChild<QPushButton*>(QLatin1String(name));
    }

    TestFolder folder;
    RecordingNotifier notifier;
    ScoresBox box{notifier, nullptr, folder.file(QStringLiteral("panel.sco")),
                  [] { return QDate(2025, 3, 7); }};
};

TEST_F(ScoresBoxTest, TwoWinsShowInBothColumnsAndClearEmptiesThem) {
    box.setWonSession(true);
    box.setWonSession(false);
    EXPECT_FALSE(box.WonSession());
    box.setLostSession(true);
    EXPECT_EQ(labels(), QStringLiteral("3 2 0 1 3 2 0 1"));

    const auto* frame = box.findChild<QGroupBox*>();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->title(), ScoresKeeper::programBaseName() + QStringLiteral(" Scores"));
    EXPECT_EQ(box.CommandCol(), 0x8000000Fu);
    box.setBackColor(packRgb(200, 190, 150));
    EXPECT_EQ(box.CommandCol(), packRgb(200, 190, 150));
    for (const char* name : {"Command1", "Command2"})
        EXPECT_EQ(button(name)->palette().color(QPalette::Button), QColor(200, 190, 150)) << name;
    box.setCommandCol(packRgb(150, 170, 200));
    const QImage image = box.grab().toImage();
    EXPECT_EQ(image.size(), QSize(254, 173));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(200, 190, 150));
    EXPECT_EQ(button("Command2")->palette().color(QPalette::Button), QColor(150, 170, 200));

    notifier.queueAnswer(AnswerYes); // No is the keeper's (scores_test)
    QTest::mouseClick(button("Command2"), Qt::LeftButton);
    EXPECT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(labels(), QStringLiteral("0 0 0 0 0 0 0 0"));
}

TEST_F(ScoresBoxTest, CloseReportsReleasesOverTheButtonOnly) {
    QSignalSpy closed(&box, &ScoresBox::CloseClicked);
    QPushButton* close = button("Command1");
    QTest::mouseClick(close, Qt::LeftButton, {}, QPoint(10, 5));
    QTest::mouseClick(close, Qt::RightButton, {}, QPoint(2, 3));
    ASSERT_EQ(closed.count(), 2);
    EXPECT_EQ(closed.at(0), (QList<QVariant>{1, 1, 150, 75}));
    EXPECT_EQ(closed.at(1), (QList<QVariant>{2, 1, 30, 45}));

    QTest::mousePress(close, Qt::LeftButton, {}, QPoint(10, 5));
    QTest::mouseRelease(close, Qt::LeftButton, {}, QPoint(500, 5));
    EXPECT_EQ(closed.count(), 2);
}

} // namespace
