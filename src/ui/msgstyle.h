// The message window's rules that need no window: reading a style text ("vbQuestion +
// vbYesNo") into icons and buttons, and the layout arithmetic in twips. QtCore only.
#pragma once

#include <QList>
#include <QString>

struct MsgButton {
    QString caption;
    int value = 0;
};

struct MsgStyle {
    // Icon slots 0..10 named by the style, in the order named (duplicates kept).
    QList<int> icons;
    // The buttons in the order named; never more than three; at least one ("Ok", 1).
    QList<MsgButton> buttons;
};

// Lower-cases the style, splits it at "+", trims each piece and applies the keywords in
// order; unknown or empty pieces are ignored. Buttons beyond the third are dropped.
MsgStyle parseMsgStyle(const QString& typ);

struct MsgLayout {
    int windowWidth = 0;  // outer width
    int windowHeight = 0; // outer height
    int labelHeight = 0;
    int buttonTop = 0;
    QList<double> buttonLefts; // one per shown button
};

constexpr int MsgLabelLeft = 840;
constexpr int MsgLabelTop = 300;
constexpr int MsgButtonWidth = 885;
constexpr int MsgButtonHeight = 345;

// The layout for a message whose text measures textWidth x textHeight twips (all lines) with
// `buttonCount` buttons (1..3; any other count shows none).
MsgLayout layoutMessage(double textWidth, double textHeight, int buttonCount);
