// The colour picker control; see colpik.h.
#include "appearance/colpik.h"

#include "appearance/pickercolours.h"
#include "appearance/twipsrect.h"
#include "ui/boxgeometry.h"
#include "ui/olecolor.h"
#include "ui/widgetcolours.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

using BoxGeometry::TwipsPerPixel;
using Channel = ColourPicker::Channel;

namespace {

// The control's design size in twips.
constexpr int DesignWidth = 3390;
constexpr int DesignHeight = 2055;

QLabel* makeLabel(QWidget* parent, const char* name, const QRect& place) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(place);
    QFont font(QStringLiteral("Arial"));
    font.setPointSizeF(8.25);
    label->setFont(font);
    return label;
}

// A channel value as the bar's position from the top, and back (the same sum both ways).
int barPosition(int value) {
    return 255 - value;
}

} // namespace

ColPik::ColPik(QWidget* parent)
    : QWidget(parent)
    , m_rules([this](quint32 colour) { return translate(colour); }) {
    setObjectName(QStringLiteral("ColPik"));
    resize(twipsRect(0, 0, DesignWidth, DesignHeight).size());

    static constexpr struct {
        const char* bar;
        const char* name;
        int barLeft;
        const char* swatch;
        int swatchLeft;
        const char* degree;
        int degreeLeft, degreeWidth;
        QRgb text;
    } Channels[] = {
        {"hsrRed", "Red", 1050, "PicRGB0", 1065, "lblRedDegree", 1050, 270, qRgb(255, 0, 0)},
        {"hsrGreen", "Green", 1395, "PicRGB1", 1395, "lblGreenDegree", 1380, 285, qRgb(0, 192, 0)},
        {"hsrBlue", "Blue", 1725, "PicRGB2", 1755, "lblBlueDegree", 1725, 270, qRgb(0, 0, 255)},
    };
    for (int ch = 0; ch < 3; ++ch) {
        const auto& c = Channels[ch];
        auto* bar = new QScrollBar(Qt::Vertical, this);
        bar->setObjectName(QString::fromLatin1(c.bar));
        bar->setAccessibleName(QString::fromLatin1(c.name));
        bar->setGeometry(twipsRect(c.barLeft, 25, 250, 1126));
        // 255 at the top, 0 at the bottom. The bar itself counts from the top (its position
        // is 255 minus the channel), so its arrows, the groove, the keys and the wheel all
        // move the value the way the thumb goes: up is more. The value changes once the
        // thumb is let go.
        bar->setRange(0, 255);
        bar->setValue(barPosition(255));
        bar->setTracking(false);
        connect(bar, &QScrollBar::valueChanged, this, [this, ch](int position) {
            m_rules.setBarValue(Channel(ch), barPosition(position));
        });
        m_bars[ch] = bar;

        m_swatches[ch] = makeLabel(this, c.swatch, twipsRect(c.swatchLeft, 1170, 225, 195));
        m_degrees[ch] =
            makeLabel(this, c.degree, twipsRect(c.degreeLeft, 1380, c.degreeWidth, 210));
        QPalette palette = m_degrees[ch]->palette();
        palette.setColor(QPalette::WindowText, QColor(c.text));
        m_degrees[ch]->setPalette(palette);
    }
    m_label2 = makeLabel(this, "Label2", twipsRect(60, 1380, 645, 165));
    m_label2->setText(QStringLiteral("Selected"));
    QPalette textPalette = m_label2->palette();
    textPalette.setColor(QPalette::WindowText, Qt::black);
    m_label2->setPalette(textPalette);
    m_label1 = makeLabel(this, "Label1", twipsRect(788, 1380, 225, 195));

    connect(&m_rules, &ColourPicker::changed, this, &ColPik::render);
    connect(&m_rules, &ColourPicker::stripsDrawn, this, &ColPik::drawStrips);
    connect(&m_rules, &ColourPicker::SelColor, this, &ColPik::SelColor);
    render();
}

quint32 ColPik::translate(quint32 colour) const {
    // Through the application's palette: the container may tint this control's own.
    return packedColour(OleTranslateColor(colour));
}

void ColPik::render() {
    for (int ch = 0; ch < 3; ++ch) {
        const auto channel = Channel(ch);
        const QSignalBlocker blocker(m_bars[ch]);
        m_bars[ch]->setValue(barPosition(m_rules.barValue(channel)));
        m_degrees[ch]->setText(m_rules.degreeCaption(channel));
        setBackground(m_swatches[ch], OleTranslateColor(m_rules.channelSwatch(channel)));
    }
    setBackground(m_label1, OleTranslateColor(m_rules.SchemeColor()));
}

void ColPik::sizeSurface() {
    // Kept in device pixels, so the surface is as sharp as the screen.
    m_ratio = devicePixelRatioF();
    m_surface = QImage(size() * m_ratio, QImage::Format_RGB32);
    m_surface.fill(OleTranslateColor(SystemButtonFace)); // the control's plain background
    drawPalette();
    m_rules.sized();
    update();
}

void ColPik::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_surface.size() != size() * devicePixelRatioF())
        sizeSurface();
}

int ColPik::devicePixel(double twips) const {
    return int(twips * m_ratio / TwipsPerPixel);
}

void ColPik::fillTwips(QPainter& painter, const QRect& twips, quint32 colour) const {
    painter.fillRect(QRect(QPoint(devicePixel(twips.left()), devicePixel(twips.top())),
                           QPoint(devicePixel(twips.right()), devicePixel(twips.bottom()))),
                     OleTranslateColor(colour));
}

void ColPik::drawPalette() {
    QPainter painter(&m_surface);
    for (int j = 1; j <= 4; ++j) {
        for (int k = 1; k <= 4; ++k) {
            fillTwips(painter, PickerColours::paletteRect(j, k),
                      PickerColours::Standard[4 * (j - 1) + (k - 1)]);
        }
    }
}

void ColPik::drawStrips(quint32 colour) {
    using namespace PickerColours;
    QPainter painter(&m_surface);
    // Each line covers the pixel column its x falls in; later lines draw over earlier ones.
    for (int i = 0; i <= StripSteps; ++i) {
        fillTwips(
            painter,
            QRect(QPoint(StripLeft + i, DarkStripTop), QPoint(StripLeft + i, DarkStripBottom)),
            clrBlackness(colour, i));
    }
    for (int i = 0; i <= StripSteps; ++i) {
        fillTwips(
            painter,
            QRect(QPoint(StripLeft + i, LightStripTop), QPoint(StripLeft + i, LightStripBottom)),
            clrWhiteness(colour, i));
    }
    update();
}

void ColPik::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(QRectF(QPointF(0, 0), QSizeF(m_surface.size()) / m_ratio), m_surface);
}

void ColPik::mousePressEvent(QMouseEvent* event) {
    // Taken here, so the release comes back to the control.
    event->accept();
}

void ColPik::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const QPointF at = event->position();
    // A release over a child label or outside the control picks nothing.
    if (childAt(at.toPoint()) || !rect().contains(at.toPoint()) || m_surface.isNull())
        return;
    const QPoint pixel(int(at.x() * m_ratio), int(at.y() * m_ratio));
    if (!m_surface.rect().contains(pixel))
        return;
    const quint32 colour = packedColour(m_surface.pixelColor(pixel));
    m_rules.surfaceClicked(colour, at.y() * TwipsPerPixel);
}
