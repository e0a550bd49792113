// MsgForm: the program's one message window. MsgboxA shows a message with the icon and
// buttons that a style text names, sized to the message, waits for the player and returns
// the value of the button chosen (Ok 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7;
// the "vbnormal" Ok gives 0). Enter answers only when the first button is "Ok"; there is no
// Escape and no close box. The window is created once and reused; the result of the last
// answer carries over to the next call until it is overwritten.
//
// Colours are packed 32-bit values (see olecolor.h); attributes set between calls take effect
// at the next call.
#pragma once

#include "ui/msgicons.h"

#include <QDialog>

#include <array>

class BoxControl;
class QLabel;

class MsgForm : public QDialog {
    Q_OBJECT
public:
    explicit MsgForm(QWidget* parent = nullptr);

    // Shows `s` with the style `typ`; BGCol and cmdcol, unless -1, replace the background and
    // ButtonColor first (and stay in force). Returns the answer.
    int MsgboxA(const QString& s, const QString& typ = QString(), qint64 BGCol = -1,
                qint64 cmdcol = -1);

    // Steps before the window shows: colours, text, fonts, style and layout. MsgboxA runs it;
    // tests call it to inspect the window without a modal loop.
    void prepare(const QString& s, const QString& typ, qint64 BGCol = -1, qint64 cmdcol = -1);

    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 colour) { m_backColor = colour; }
    void setBackColor(const QColor& colour);
    quint32 ForeColor() const { return m_foreColor; }
    void setForeColor(quint32 colour) { m_foreColor = colour; }
    void setForeColor(const QColor& colour);
    quint32 ButtonColor() const { return m_buttonColor; }
    void setButtonColor(quint32 colour) { m_buttonColor = colour; }
    void setButtonColor(const QColor& colour);
    QString FontName() const { return m_fontName; }
    void setFontName(const QString& name) { m_fontName = name; }
    float FontSize() const { return m_fontSize; }
    void setFontSize(float points) { m_fontSize = points; }
    bool FontBold() const { return m_fontBold; }
    void setFontBold(bool bold) { m_fontBold = bold; }

    int result() const { return m_result; }
    BoxControl* button(int i) const { return m_cmd.at(i); }
    QLabel* icon(int slot) const { return m_icons.at(slot); }
    QLabel* label() const { return m_label; }
    // The outer window size the layout asked for, in twips.
    QSize layoutSize() const { return m_layoutSize; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void answer(int buttonIndex);
    QFont messageFont() const;

    std::array<QLabel*, MsgIconSlots> m_icons{};
    QLabel* m_label = nullptr;
    std::array<BoxControl*, 3> m_cmd{};
    std::array<int, 3> m_values{};
    int m_lastButton = -1;
    int m_result = 0;
    QSize m_layoutSize;

    quint32 m_backColor;
    quint32 m_foreColor;
    quint32 m_buttonColor;
    QString m_fontName = QStringLiteral("Arial");
    float m_fontSize = 8.25f;
    bool m_fontBold = false;
};
