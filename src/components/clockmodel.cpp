// The countdown clock's logic; see clockmodel.h.
#include "components/clockmodel.h"

#include "components/sevensegment.h"
#include "core/settings.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace sevensegment;

namespace {

struct Palette {
    const char* name;
    quint32 background;
    quint32 unlit;
    quint32 lit;
};

constexpr Palette kPalettes[] = {
    {"GREEN", packRgb(0, 50, 0), packRgb(0, 100, 0), packRgb(0, 244, 0)},
    {"GOLD", packRgb(146, 142, 102), packRgb(125, 125, 102), packRgb(244, 244, 205)},
    {"RED", packRgb(50, 0, 0), packRgb(100, 0, 0), packRgb(244, 0, 0)},
    {"BLUE", packRgb(0, 0, 50), packRgb(0, 0, 100), packRgb(0, 0, 244)},
    {"BLACK", packRgb(8, 8, 8), packRgb(60, 60, 60), packRgb(230, 230, 230)},
    {"WHITE", packRgb(244, 244, 244), packRgb(230, 230, 230), packRgb(70, 70, 70)},
};

constexpr int kTickMs = 1000;
constexpr int kLargestCount = 99 * 60 + 59;

} // namespace

ClockModel::ClockModel(std::unique_ptr<TickSource> ticks, TimeSource now, QObject* parent)
    : QObject(parent)
    , m_ticks(std::move(ticks))
    , m_now(std::move(now)) {
    m_ticks->setHandler([this] { tick(); });
    m_lineWidths.fill(3);
    m_lineWidths[32] = 1; // the last digit's bottom bar is drawn thin
    m_segmentColours = {packRgb(0, 100, 0), packRgb(0, 244, 0)};
    ApplyClockColours();
    DisplayCount(0);
}

void ClockModel::setClockBackground(quint32 New_ClockBackground) {
    m_clockBackground = New_ClockBackground;
    m_shownBackground = New_ClockBackground;
    Q_EMIT changed();
}

void ClockModel::setDigitHighlight(quint32 New_DigitHighlight) {
    m_digitHighlight = New_DigitHighlight;
    m_segmentColours[1] = New_DigitHighlight;
    ApplyClockColours();
}

void ClockModel::setDigitDim(quint32 New_DigitDim) {
    m_digitDim = New_DigitDim;
    m_segmentColours[0] = New_DigitDim;
    ApplyClockColours();
}

void ClockModel::setClockStartValue(qint32 New_ClockStartValue) {
    m_clockStartValue = New_ClockStartValue;
    m_clockCount = New_ClockStartValue;
    DisplayCount(m_clockCount);
}

void ClockModel::setDigitWidth(qint32 New_DigitWidth) {
    m_digitWidth = New_DigitWidth;
    const int width = std::clamp(New_DigitWidth, 1, 15);
    for (int p = 0; p < kPositions; ++p)
        for (int s = 0; s < kSegments; ++s)
            m_lineWidths[10 * p + s] = width;
    m_lineWidths[kUpperDot] = width;
    m_lineWidths[kLowerDot] = width;
    Q_EMIT changed();
}

void ClockModel::setClockColor(const QString& New_ClockColor) {
    m_clockColor = New_ClockColor;
    const QString name = New_ClockColor.toUpper();
    if (name == QLatin1String("DEFAULT"))
        return;
    for (const Palette& palette : kPalettes) {
        if (name == QLatin1String(palette.name)) {
            m_clockBackground = palette.background;
            m_segmentColours = {palette.unlit, palette.lit};
        }
    }
    ApplyClockColours();
}

void ClockModel::StartCountdown() {
    m_ticks->start(kTickMs);
    m_dotVisible = {true, true};
    Q_EMIT changed();
}

void ClockModel::ResumeCountDown() {
    m_ticks->start(kTickMs);
}

void ClockModel::SuspendCountDown() {
    m_ticks->stop();
}

void ClockModel::tick() {
    if (m_showTimeOnly) {
        ShowTime();
    } else if (m_clockCount > 0) {
        const qint64 next = qint64(m_clockCount) + m_clockIncrement;
        m_clockCount = static_cast<qint32>(std::clamp<qint64>(
            next, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
        DisplayCount(m_clockCount);
    } else {
        Q_EMIT ClockExpired();
    }
}

void ClockModel::DisplayCount(qint64 n) {
    const qint64 shown = std::clamp<qint64>(n, 0, kLargestCount);
    const int minutes = static_cast<int>(shown / 60);
    const int seconds = static_cast<int>(shown - 60 * minutes);
    paintDigits({minutes / 10, minutes % 10, seconds / 10, seconds % 10});
    const quint32 colon = m_segmentColours[seconds % 2 == 1 ? 0 : 1];
    m_dotColours = {colon, colon};
    Q_EMIT changed();
}

void ClockModel::ShowTime() {
    const QTime t = m_now();
    if (!t.isValid())
        return;
    paintDigits({t.hour() / 10, t.hour() % 10, t.minute() / 10, t.minute() % 10});
    const bool secondHalf = t.second() > 29;
    m_dotVisible = {!secondHalf, secondHalf};
    quint32& shown = m_dotColours[secondHalf ? 1 : 0];
    shown = shown != m_segmentColours[1] ? m_segmentColours[1] : m_segmentColours[0];
    Q_EMIT changed();
}

quint32 ClockModel::segmentColour(int position, int segment) const {
    if (position < 0 || position >= kPositions || segment < 0 || segment >= kSegments)
        return 0;
    return m_shownSegments[static_cast<size_t>(position)][static_cast<size_t>(segment)];
}

quint32 ClockModel::dotColour(int dot) const {
    return m_dotColours[dot == kUpperDot ? 0 : 1];
}

bool ClockModel::dotVisible(int dot) const {
    return m_dotVisible[dot == kUpperDot ? 0 : 1];
}

int ClockModel::lineWidth(int element) const {
    return element >= 0 && element < static_cast<int>(m_lineWidths.size())
               ? m_lineWidths[static_cast<size_t>(element)]
               : 0;
}

void ClockModel::ApplyClockColours() {
    for (auto& position : m_shownSegments)
        position.fill(m_segmentColours[0]);
    m_dotColours = {m_segmentColours[1], m_segmentColours[1]};
    m_shownBackground = m_clockBackground;
    Q_EMIT changed();
}

void ClockModel::paintDigits(const std::array<int, 4>& digits) {
    for (int p = 0; p < kPositions; ++p)
        for (int s = 0; s < kSegments; ++s)
            m_shownSegments[static_cast<size_t>(p)][static_cast<size_t>(s)] =
                m_segmentColours[segmentLit(digits[static_cast<size_t>(p)], s) ? 1 : 0];
}
