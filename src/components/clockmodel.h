// ClockModel: everything the countdown clock knows and does, without a display. It counts
// seconds by ClockIncrement per tick from ClockStartValue and shows them as MM:SS, raising
// ClockExpired on every tick once the count is 0 or less; or it shows the time of day as
// HH:MM with a blinking dot. What it shows is a colour per line element (see
// sevensegment.h), which the Dc widget paints. Depends on QtCore only.
//
// Colours are packed values (red + 256 * green + 65536 * blue).
//
// Counts without digits of their own: a count below 0 shows 00:00 and one of 6000 seconds
// or more shows 99:59, each exactly as that count itself is shown (so 99:59 with the colon
// dark). Counting saturates at the limits of 32 bits instead of wrapping. DigitWidth is
// drawn at least 1 and at most 15 pixels wide.
#pragma once

#include "components/ticksource.h"

#include <QObject>
#include <QString>
#include <QTime>

#include <array>
#include <functional>
#include <memory>

class ClockModel : public QObject {
    Q_OBJECT
public:
    using TimeSource = std::function<QTime()>;

    // A new clock: count 0 shown as 00:00 in green on black, stopped. `ticks` drives the
    // tick (a 1000 ms timer by default); `now` gives the time of day for ShowTime.
    explicit ClockModel(
        std::unique_ptr<TickSource> ticks = std::make_unique<TimerTickSource>(),
        TimeSource now = [] { return QTime::currentTime(); }, QObject* parent = nullptr);

    quint32 ClockBackground() const { return m_clockBackground; }
    // Stores and fills the background at once.
    void setClockBackground(quint32 New_ClockBackground);
    quint32 DigitHighlight() const { return m_digitHighlight; }
    // Stores, makes it the lit colour and repaints all segments unlit (ApplyClockColours).
    void setDigitHighlight(quint32 New_DigitHighlight);
    quint32 DigitDim() const { return m_digitDim; }
    // Stores, makes it the unlit colour and repaints all segments unlit.
    void setDigitDim(quint32 New_DigitDim);
    qint32 ClockStartValue() const { return m_clockStartValue; }
    // Stores, sets the count to it and shows it.
    void setClockStartValue(qint32 New_ClockStartValue);
    qint32 ClockIncrement() const { return m_clockIncrement; }
    void setClockIncrement(qint32 New_ClockIncrement) { m_clockIncrement = New_ClockIncrement; }
    qint32 DigitWidth() const { return m_digitWidth; }
    // Stores and sets the line width of all 30 elements (drawn 1..15 pixels wide).
    void setDigitWidth(qint32 New_DigitWidth);
    bool ShowTimeOnly() const { return m_showTimeOnly; }
    void setShowTimeOnly(bool New_ShowTimeOnly) { m_showTimeOnly = New_ShowTimeOnly; }
    QString ClockColor() const { return m_clockColor; }
    // Stores; "Default" (any case) does nothing more. Green, Gold, Red, Blue, Black and
    // White (any case) set the background and the unlit and lit colours; any other name
    // keeps them. Then, except for Default, every segment is repainted unlit.
    void setClockColor(const QString& New_ClockColor);
    // Reads the running count; a write is only stored and changes nothing shown.
    qint32 ClockNow() const { return m_clockCount; }
    void setClockNow(qint32 New_ClockNow) { m_storedClockNow = New_ClockNow; }

    // Start ticking and show both dots / start ticking / stop ticking.
    void StartCountdown();
    void ResumeCountDown();
    void SuspendCountDown();
    bool isRunning() const { return m_ticks->isActive(); }

    // One tick: ShowTime when ShowTimeOnly; else, with a count above 0, count on and show
    // it; else raise ClockExpired (again on every later tick).
    void tick();

    // Shows `n` seconds as MM:SS (limits above); the colon lit on even seconds.
    void DisplayCount(qint64 n);
    // Shows the time of day as HH:MM; the upper dot in the first half of each minute, the
    // lower in the second, changing between lit and unlit on every call.
    void ShowTime();

    // What is shown: the colour of segment `segment` (0..6) of position `position` (0..3);
    // of dot sevensegment::kUpperDot or kLowerDot and whether it is shown; the line width
    // of element 10 * p + s or a dot; the background.
    quint32 segmentColour(int position, int segment) const;
    quint32 dotColour(int dot) const;
    bool dotVisible(int dot) const;
    int lineWidth(int element) const;
    quint32 backgroundColour() const { return m_shownBackground; }
    // The unlit (0) and lit (1) colours.
    quint32 SegmentColours(int index) const { return m_segmentColours[index == 0 ? 0 : 1]; }

Q_SIGNALS:
    void ClockExpired();
    // Something shown has changed.
    void changed();

private:
    void ApplyClockColours();
    void paintDigits(const std::array<int, 4>& digits);

    std::unique_ptr<TickSource> m_ticks;
    TimeSource m_now;

    quint32 m_clockBackground = 0;
    quint32 m_digitHighlight = 0;
    quint32 m_digitDim = 0;
    qint32 m_clockStartValue = 0;
    qint32 m_clockIncrement = 0;
    qint32 m_digitWidth = 0;
    bool m_showTimeOnly = false;
    QString m_clockColor = QStringLiteral("Green");
    qint32 m_storedClockNow = 0;

    qint32 m_clockCount = 0;
    std::array<quint32, 2> m_segmentColours{};
    std::array<std::array<quint32, 7>, 4> m_shownSegments{};
    std::array<quint32, 2> m_dotColours{};
    std::array<bool, 2> m_dotVisible{true, true};
    std::array<int, 42> m_lineWidths{};
    quint32 m_shownBackground = 0;
};
