// The message window's rules that need no window: reading a style text such as
// "vbQuestion + vbYesNo" into icons and buttons, and the layout arithmetic in twips.
// QtCore only.
#pragma once

#include <QList>
#include <QString>

struct MsgButton {
    QString caption;
    int value = 0;
    friend bool operator==(const MsgButton&, const MsgButton&) = default;
};

struct MsgStyle {
    // Icon slots (0..8, or 10 for "vbcustom") in the order named, repeats kept.
    QList<int> icons;
    // The buttons in the order named: one to three, ("Ok", 1) when none is named.
    QList<MsgButton> buttons;
};

// The style text is lower-cased and split at every "+", each piece trimmed of leading and
// trailing spaces and compared exactly with the keywords ("vbquestion" .. "vblighton",
// "vbcustom", "vbok", "vbokonly", "vbnormal" (an "Ok" worth 0), "vbcancel", "vbabort",
// "vbretry", "vbignore", "vbyes", "vbno", "vbokcancel", "vbretrycancel", "vbyesno",
// "vbyesnocancel", "vbabortretryignore"). Other pieces, the empty one included, are ignored.
// There are three button places; buttons named beyond the third are dropped.
MsgStyle parseMsgStyle(const QString& typ);

// Designed places and sizes of the message window, in twips.
constexpr int MsgIconLeft = 90;
constexpr int MsgIconTop = 90;
constexpr int MsgIconSize = 480;
constexpr int MsgLabelLeft = 840;
constexpr int MsgLabelTop = 300;
constexpr int MsgButtonWidth = 885;
constexpr int MsgButtonHeight = 345;
constexpr int MsgButtonSlots = 3;
// The largest text width or height the layout takes, in twips (some 1,700 metres): far beyond
// any screen, and small enough that no sum of the layout overflows.
constexpr int MsgMaxTextSize = 100'000'000;

struct MsgLayout {
    int windowWidth = 0;  // outer width, frame and title bar included
    int windowHeight = 0; // outer height
    int labelHeight = 0;
    int buttonTop = 0;
    QList<double> buttonLefts; // one per shown button, touching each other
};

// The layout of a message whose text measures textWidth x textHeight twips (widest line x
// all lines) with buttons 0..lastButton filled: the window is 2 x 840 + textWidth wide but
// never narrower than three buttons (2655); the label is the text height + 120 high; the
// buttons sit 120 below the label, centred as a row; the window ends 600 below them. A
// lastButton outside 0..2 shows no button. A text size below 0 counts as 0 and one above
// MsgMaxTextSize as MsgMaxTextSize.
MsgLayout layoutMessage(int textWidth, int textHeight, int lastButton);
