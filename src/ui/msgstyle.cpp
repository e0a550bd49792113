// Style texts and message layout; see msgstyle.h.
#include "ui/msgstyle.h"

#include <QHash>

#include <algorithm>

namespace {

struct Keyword {
    int icon = -1;
    QList<MsgButton> buttons;
};

const QHash<QString, Keyword>& keywords() {
    static const QHash<QString, Keyword> table = [] {
        const MsgButton ok{QStringLiteral("Ok"), 1};
        const MsgButton cancel{QStringLiteral("Cancel"), 2};
        const MsgButton abort{QStringLiteral("Abort"), 3};
        const MsgButton retry{QStringLiteral("Retry"), 4};
        const MsgButton ignore{QStringLiteral("Ignore"), 5};
        const MsgButton yes{QStringLiteral("Yes"), 6};
        const MsgButton no{QStringLiteral("No"), 7};
        QHash<QString, Keyword> t;
        const char* const icons[] = {"vbquestion", "vbexclamation", "vbinformation",
                                     "vberror",    "vbcritical",    "vbhappy",
                                     "vbtrash",    "vbprint",       "vblighton"};
        for (int slot = 0; slot < 9; ++slot)
            t.insert(QString::fromLatin1(icons[slot]), Keyword{slot, {}});
        t.insert(QStringLiteral("vbcustom"), Keyword{10, {}});
        t.insert(QStringLiteral("vbok"), Keyword{-1, {ok}});
        t.insert(QStringLiteral("vbokonly"), Keyword{-1, {ok}});
        t.insert(QStringLiteral("vbnormal"), Keyword{-1, {{QStringLiteral("Ok"), 0}}});
        t.insert(QStringLiteral("vbcancel"), Keyword{-1, {cancel}});
        t.insert(QStringLiteral("vbabort"), Keyword{-1, {abort}});
        t.insert(QStringLiteral("vbretry"), Keyword{-1, {retry}});
        t.insert(QStringLiteral("vbignore"), Keyword{-1, {ignore}});
        t.insert(QStringLiteral("vbyes"), Keyword{-1, {yes}});
        t.insert(QStringLiteral("vbno"), Keyword{-1, {no}});
        t.insert(QStringLiteral("vbokcancel"), Keyword{-1, {ok, cancel}});
        t.insert(QStringLiteral("vbretrycancel"), Keyword{-1, {retry, cancel}});
        t.insert(QStringLiteral("vbyesno"), Keyword{-1, {yes, no}});
        t.insert(QStringLiteral("vbyesnocancel"), Keyword{-1, {yes, no, cancel}});
        t.insert(QStringLiteral("vbabortretryignore"), Keyword{-1, {abort, retry, ignore}});
        return t;
    }();
    return table;
}

// Only the space character is trimmed: a tab or line break makes the piece unknown.
QString trimSpaces(const QString& piece) {
    qsizetype first = 0;
    qsizetype last = piece.size();
    while (first < last && piece[first] == u' ')
        ++first;
    while (last > first && piece[last - 1] == u' ')
        --last;
    return piece.mid(first, last - first);
}

} // namespace

MsgStyle parseMsgStyle(const QString& typ) {
    MsgStyle style;
    for (const QString& piece : typ.toLower().split(u'+')) {
        const auto found = keywords().constFind(trimSpaces(piece));
        if (found == keywords().constEnd())
            continue;
        if (found->icon >= 0)
            style.icons.append(found->icon);
        for (const MsgButton& button : found->buttons) {
            if (style.buttons.size() < MsgButtonSlots)
                style.buttons.append(button);
        }
    }
    if (style.buttons.isEmpty())
        style.buttons.append({QStringLiteral("Ok"), 1});
    return style;
}

MsgLayout layoutMessage(int textWidth, int textHeight, int lastButton) {
    // Sizes outside what a text can measure are held to it, so the sums below stay in range.
    textWidth = std::clamp(textWidth, 0, MsgMaxTextSize);
    textHeight = std::clamp(textHeight, 0, MsgMaxTextSize);
    MsgLayout layout;
    layout.windowWidth = std::max(2 * MsgLabelLeft + textWidth, MsgButtonSlots * MsgButtonWidth);
    layout.labelHeight = textHeight + 120;
    layout.buttonTop = MsgLabelTop + layout.labelHeight + 120;
    layout.windowHeight = layout.buttonTop + MsgButtonHeight + 600;
    if (lastButton >= 0 && lastButton < MsgButtonSlots) {
        const int shown = lastButton + 1;
        double left = (layout.windowWidth - shown * MsgButtonWidth) / 2.0;
        for (int i = 0; i < shown; ++i, left += MsgButtonWidth)
            layout.buttonLefts.append(left);
    }
    return layout;
}
