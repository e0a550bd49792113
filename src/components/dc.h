// Dc: the four-digit seven-segment countdown clock as a widget, 109 x 39 pixels (1635 x 585
// twips). It paints what its ClockModel shows and passes the model's members through under
// their own names; the logic and its limits are described in clockmodel.h.
#pragma once

#include "components/clockmodel.h"

#include <QWidget>

class QPainter;

class Dc : public QWidget {
    Q_OBJECT
public:
    // `ticks` as for ClockModel (a 1000 ms timer by default).
    explicit Dc(
        QWidget* parent = nullptr,
        std::unique_ptr<TickSource> ticks = std::make_unique<TimerTickSource>(),
        ClockModel::TimeSource now = [] { return QTime::currentTime(); });

    ClockModel& model() { return m_model; }
    const ClockModel& model() const { return m_model; }

    quint32 ClockBackground() const { return m_model.ClockBackground(); }
    void setClockBackground(quint32 v) { m_model.setClockBackground(v); }
    quint32 DigitHighlight() const { return m_model.DigitHighlight(); }
    void setDigitHighlight(quint32 v) { m_model.setDigitHighlight(v); }
    quint32 DigitDim() const { return m_model.DigitDim(); }
    void setDigitDim(quint32 v) { m_model.setDigitDim(v); }
    qint32 ClockStartValue() const { return m_model.ClockStartValue(); }
    void setClockStartValue(qint32 v) { m_model.setClockStartValue(v); }
    qint32 ClockIncrement() const { return m_model.ClockIncrement(); }
    void setClockIncrement(qint32 v) { m_model.setClockIncrement(v); }
    qint32 DigitWidth() const { return m_model.DigitWidth(); }
    void setDigitWidth(qint32 v) { m_model.setDigitWidth(v); }
    bool ShowTimeOnly() const { return m_model.ShowTimeOnly(); }
    void setShowTimeOnly(bool v) { m_model.setShowTimeOnly(v); }
    QString ClockColor() const { return m_model.ClockColor(); }
    void setClockColor(const QString& v) { m_model.setClockColor(v); }
    qint32 ClockNow() const { return m_model.ClockNow(); }
    void setClockNow(qint32 v) { m_model.setClockNow(v); }

    void StartCountdown() { m_model.StartCountdown(); }
    void ResumeCountDown() { m_model.ResumeCountDown(); }
    void SuspendCountDown() { m_model.SuspendCountDown(); }

Q_SIGNALS:
    void ClockExpired();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ClockModel m_model;
};

// Paints `model`'s face into `painter`, whose coordinates are twips (scale it for pixels).
void paintClock(QPainter& painter, const ClockModel& model, const QPalette& palette);
