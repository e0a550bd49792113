// BoxControl: the program's own push button. It paints its face itself (a plain background,
// a centred caption, a light line along the top and left edges, a dark line inset along the
// bottom and right edges, an optional picture at its natural size; see boxgeometry.h) and
// shows a thin dark frame only while a mouse button is held on it. It never acts on its own:
// a press raises MouseDown, the release raises MouseUp (wherever the pointer is by then,
// since the press captures the mouse), for any mouse button, and the window holding it
// decides what a click means. While disabled it raises nothing and looks exactly the same.
//
// The keyboard, once a window gives the control a focus policy: Space raises MouseDown when
// pressed and MouseUp when released (so holding it holds the button down), Enter raises both
// at once; both with Button 0 and the point (0, 0). While it has the focus the control shows
// a ring FocusRingWidth pixels wide along its edges, black or white against its face.
// Assistive technology sees a push button named by its accessible name or else its caption.
//
// Colours are packed 32-bit values; a system colour (top bit set) is kept as given, reads
// back unchanged and is translated through the palette only for painting (olecolor.h).
#pragma once

#include <QPixmap>
#include <QWidget>

// Mouse codes as the events carry them: Button 1 left, 2 right, 4 middle (0 for any other);
// Shift 1 Shift, 2 Ctrl, 4 Alt, added together.
qint16 mouseButtonCode(Qt::MouseButton button);
qint16 shiftCode(Qt::KeyboardModifiers modifiers);

class BoxControl : public QWidget {
    Q_OBJECT
public:
    // Starts with face colour system colour 15 (button face), caption colour system colour 18
    // (button text), no caption, no picture, no frame, font "MS Sans Serif" 8.25.
    explicit BoxControl(QWidget* parent = nullptr);

    // Every property reads back the value last set; every setter but Enabled's repaints.
    quint32 ForeColor() const { return m_foreColor; }
    void setForeColor(quint32 colour);
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 colour);
    // Enabled is the widget's enabled state (setEnabled): a disabled control gets no mouse
    // input, so it raises nothing; its face is painted the same either way. Disabling it while
    // a button is held drops the frame, since no release will come.
    bool Enabled() const { return isEnabled(); }
    QFont Font() const { return font(); }
    // Replaces the caption font as a whole.
    void setControlFont(const QFont& font);
    QString Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    // Points; a size of 0 or less is kept for reading back but leaves the font's size alone.
    float FontSize() const { return m_fontSize; }
    void setFontSize(float points);
    bool FontBold() const { return font().bold(); }
    void setFontBold(bool bold);
    bool FontItalic() const { return font().italic(); }
    void setFontItalic(bool italic);
    // Painted at its natural size (its logical pixels); a null pixmap means no picture.
    QPixmap Picture() const { return m_picture; }
    void setPicture(const QPixmap& picture);
    // Repaints the control on screen at once.
    void Refresh() { repaint(); }

    // True while the pressed frame shows: from a press on the control to the next release.
    bool isPressed() const { return m_pressed; }

    static constexpr int FocusRingWidth = 2;

Q_SIGNALS:
    // Button, Shift: the codes above; x, y: the pointer in twips relative to the control.
    void MouseDown(qint16 button, qint16 shift, float x, float y);
    void MouseUp(qint16 button, qint16 shift, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void keyDown(Qt::KeyboardModifiers modifiers);
    void keyUp(Qt::KeyboardModifiers modifiers);

    quint32 m_foreColor;
    quint32 m_backColor;
    QString m_caption;
    QPixmap m_picture;
    float m_fontSize = 8.25f;
    bool m_pressed = false;
    bool m_keyHeld = false; // Space is down on the control
    Qt::MouseButtons m_held;
};
