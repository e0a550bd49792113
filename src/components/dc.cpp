// Painting the countdown clock; see dc.h.
#include "components/dc.h"

#include "components/sevensegment.h"
#include "core/twips.h"
#include "ui/olecolor.h"

#include <QPainter>

#include <utility>

namespace {

constexpr int kTwipsPerPixel = Twips::PerPixel;

void drawElement(QPainter& painter, const QLine& line, quint32 colour, int widthPixels,
                 const QPalette& palette) {
    QPen pen(OleTranslateColor(colour, palette), widthPixels * kTwipsPerPixel);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawLine(line);
}

} // namespace

Dc::Dc(QWidget* parent, std::unique_ptr<TickSource> ticks, ClockModel::TimeSource now)
    : QWidget(parent)
    , m_model(std::move(ticks), std::move(now)) {
    setFixedSize(1635 / kTwipsPerPixel, 585 / kTwipsPerPixel);
    connect(&m_model, &ClockModel::changed, this, qOverload<>(&QWidget::update));
    connect(&m_model, &ClockModel::ClockExpired, this, &Dc::ClockExpired);
}

void Dc::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / kTwipsPerPixel, 1.0 / kTwipsPerPixel);
    paintClock(painter, m_model, palette());
}

void paintClock(QPainter& painter, const ClockModel& model, const QPalette& palette) {
    using namespace sevensegment;
    painter.save();
    const QColor background = OleTranslateColor(model.backgroundColour(), palette);
    painter.setPen(background);
    painter.setBrush(background);
    painter.drawRect(0, 0, 1650, 580);
    for (int p = 0; p < kPositions; ++p)
        for (int s = 0; s < kSegments; ++s)
            drawElement(painter, segmentLine(p, s), model.segmentColour(p, s),
                        model.lineWidth(10 * p + s), palette);
    for (const int dot : {kUpperDot, kLowerDot}) {
        if (model.dotVisible(dot))
            drawElement(painter, dotLine(dot), model.dotColour(dot), model.lineWidth(dot), palette);
    }
    painter.restore();
}
