// ColPik, the colour picker control: a palette of the sixteen standard colours, a dark and a
// light strip for the current colour, three vertical bars for red, green and blue (255 at the
// top, 0 at the bottom) with their value labels and channel swatches, and a swatch of the
// selected colour. The rules live in ColourPicker; this widget draws the surface into an
// image that stays as its background, renders the rules' state and forwards bar moves and
// clicks. A click on the surface picks the colour drawn at that point of the image.
#pragma once

#include "appearance/colourpicker.h"

#include <QImage>
#include <QWidget>

#include <array>

class QLabel;
class QPainter;
class QScrollBar;

class ColPik : public QWidget {
    Q_OBJECT
public:
    explicit ColPik(QWidget* parent = nullptr);

    // The selected colour (plain RGB); writing selects a colour, translating a system colour
    // through this control's palette, and redraws the strips.
    quint32 SchemeColor() const { return m_rules.SchemeColor(); }
    void setSchemeColor(quint32 colour) { m_rules.setSchemeColor(colour); }
    // The control's enabled state (a disabled picker takes no clicks and no bar moves).
    bool Enabled() const { return isEnabled(); }

    // Draws the palette at the control's current size and selects RGB(192, 192, 192), as the
    // first sizing does. A container calls it once after placing the control, so the
    // selection (and its SelColor events) happen then rather than at the first show, when Qt
    // delivers the first resize. Later resizes run it by themselves.
    void sizeSurface();

    ColourPicker& rules() { return m_rules; }
    // The drawn surface in device pixels (the palette, the strips, the plain background), at
    // the control's size times its device pixel ratio.
    const QImage& surface() const { return m_surface; }
    // A channel's bar; its own value counts from the top (255 minus the channel's value).
    QScrollBar* bar(ColourPicker::Channel channel) const { return m_bars[channel]; }
    QLabel* degreeLabel(ColourPicker::Channel channel) const { return m_degrees[channel]; }
    QLabel* channelSwatch(ColourPicker::Channel channel) const { return m_swatches[channel]; }
    QLabel* selectedSwatch() const { return m_label1; }

Q_SIGNALS:
    // Raised on every change of the selected colour, intermediate colours included.
    void SelColor(quint32 colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    // The device pixel a twips position falls in (whole pixels cut off).
    int devicePixel(double twips) const;
    // Fills the device pixels from the twips rectangle's top-left to its bottom-right corner,
    // both included.
    void fillTwips(QPainter& painter, const QRect& twips, quint32 colour) const;
    void drawPalette();
    void drawStrips(quint32 colour);
    void render();
    quint32 translate(quint32 colour) const;

    ColourPicker m_rules;
    QImage m_surface; // device pixels
    qreal m_ratio = 1.0;
    std::array<QScrollBar*, 3> m_bars{};
    std::array<QLabel*, 3> m_degrees{};
    std::array<QLabel*, 3> m_swatches{};
    QLabel* m_label1 = nullptr;
    QLabel* m_label2 = nullptr;
};
