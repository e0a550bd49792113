// BoxControl: the program's own push button. It draws its face itself (plain background,
// centred caption, a light top/left edge, a dark inset bottom/right edge, an optional
// picture) and shows a thin frame only while a mouse button is held on it. It never acts on
// its own: it reports MouseDown on a press and MouseUp on the release (wherever the pointer
// is then, since the press captures the mouse), and the window holding it decides what a
// click means. While disabled it raises nothing and looks exactly the same.
//
// Lengths are twips (15 to the pixel). Colours are packed 32-bit values (see olecolor.h); a
// system colour is kept as given and translated only for painting.
#pragma once

#include <QPixmap>
#include <QWidget>

// VB-style mouse codes: Button 1 left, 2 right, 4 middle; Shift 1 Shift, 2 Ctrl, 4 Alt.
qint16 mouseButtonCode(Qt::MouseButton button);
qint16 shiftCode(Qt::KeyboardModifiers modifiers);

class BoxControl : public QWidget {
    Q_OBJECT
public:
    explicit BoxControl(QWidget* parent = nullptr);

    quint32 ForeColor() const { return m_foreColor; }
    void setForeColor(quint32 colour);
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 colour);
    // The widget's own enabled state: a disabled control gets no mouse input, so it raises
    // nothing, and its face is painted the same either way.
    bool Enabled() const { return isEnabled(); }
    QFont Font() const { return font(); }
    void setControlFont(const QFont& font);
    QString Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    float FontSize() const { return float(font().pointSizeF()); }
    void setFontSize(float points);
    bool FontBold() const { return font().bold(); }
    void setFontBold(bool bold);
    bool FontItalic() const { return font().italic(); }
    void setFontItalic(bool italic);
    QPixmap Picture() const { return m_picture; }
    void setPicture(const QPixmap& picture);
    // Repaints the control on screen.
    void Refresh() { repaint(); }

    // True while a mouse button is held on the control (the frame shows).
    bool isPressed() const { return m_pressed; }

    // Where the picture's top-left corner goes, in twips, for a picture of natural size
    // pw x ph in hundredths of a millimetre on a face W x H twips.
    static QPointF pictureCorner(double faceWidth, double faceHeight, int pw, int ph);
    // A picture's natural size in hundredths of a millimetre (whole numbers) at 96 dpi.
    static QSize himetricSize(const QSize& pixels);

Q_SIGNALS:
    void MouseDown(qint16 button, qint16 shift, float x, float y);
    void MouseUp(qint16 button, qint16 shift, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void redraw();

    quint32 m_foreColor;
    quint32 m_backColor;
    QString m_caption;
    QPixmap m_picture;
    bool m_pressed = false;
};
