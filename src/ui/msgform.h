// MsgForm: the program's one message window. MsgboxA shows a message with the icon and the
// buttons that a style text names (msgstyle.h), sized to the message, waits for the player
// and returns the value of the button chosen (Ok 1, Cancel 2, Abort 3, Retry 4, Ignore 5,
// Yes 6, No 7; the "vbnormal" Ok gives 0). A release of any mouse button on a shown button
// answers; Enter answers only when the first button reads "Ok". Beyond that, Tab and
// Shift+Tab move a visible focus through the shown buttons (none has it when the window
// opens) and Space answers with the focused one on its release; no other key does anything,
// and there is no close box. The window is created once and reused, hidden between messages;
// the result of the last answer carries over until the next answer overwrites it.
//
// Colours are packed 32-bit values (olecolor.h). The attributes may be set at any time and
// take effect at the next MsgboxA.
#pragma once

#include "ui/msgicons.h"
#include "ui/msgstyle.h"

#include <QDialog>

#include <array>
#include <functional>

class BoxControl;
class QLabel;

class MsgForm : public QDialog {
    Q_OBJECT
public:
    // Title "Message"; background and button colour system colour 15, text colour system
    // colour 18; font "Arial" 8.25, not bold.
    explicit MsgForm(QWidget* parent = nullptr);

    // Shows `s` with the style `typ` and returns the answer. BGCol and cmdcol, unless -1,
    // first replace the background and ButtonColor (and stay in force for later messages).
    // The window opens modal, centred over the active window. A call made while a message is
    // already up (from a timer, say) shows nothing and returns the stored result.
    int MsgboxA(const QString& s, const QString& typ = QString(), qint64 BGCol = -1,
                qint64 cmdcol = -1);

    // Everything MsgboxA does before the window shows: colours, text, fonts, style and
    // layout. Tests call it to look at a message without showing it.
    void prepare(const QString& s, const QString& typ, qint64 BGCol = -1, qint64 cmdcol = -1);

    // For tests and pictures: when set, MsgboxA shows the window without a modal loop, calls
    // the hook (which answers through the mouse or the keyboard, e.g. with QTest), hides the
    // window if it is still up, and returns the result as it then stands.
    using ShowHook = std::function<void(MsgForm&)>;
    void setShowHook(ShowHook hook) { m_showHook = std::move(hook); }

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

    // The stored result: the value of the last button chosen (0 before the first answer).
    int result() const { return m_result; }
    // Index of the last button the current style filled (0..2).
    int lastButton() const { return m_lastButton; }
    BoxControl* button(int i) const { return m_cmd.at(i); }
    QLabel* icon(int slot) const { return m_icons.at(slot); }
    QLabel* label() const { return m_label; }
    // The layout of the current message, in twips.
    const MsgLayout& layout() const { return m_layout; }
    // The height of one text line in the current message font, in twips.
    int lineHeight() const { return m_lineHeight; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void moveButtonFocus(const QKeyEvent* key);
    void answer(int buttonIndex);
    void placeOverOwner();
    QFont messageFont() const;

    std::array<QLabel*, MsgIconSlots> m_icons{};
    QLabel* m_label = nullptr;
    std::array<BoxControl*, MsgButtonSlots> m_cmd{};
    std::array<QString, MsgButtonSlots> m_values; // decimal text, as each button carries it
    int m_lastButton = -1;
    int m_result = 0;
    bool m_up = false;
    MsgLayout m_layout;
    int m_lineHeight = 0;
    ShowHook m_showHook;

    quint32 m_backColor;
    quint32 m_foreColor;
    quint32 m_buttonColor;
    QString m_fontName = QStringLiteral("Arial");
    float m_fontSize = 8.25f;
    bool m_fontBold = false;
};
