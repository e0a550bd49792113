// The help window's rules that need no display: the address of the help page, when Back and
// Forward may act, and the size of the browser for a window size. QtCore only.
#pragma once

#include <QSize>
#include <QString>
#include <QUrl>

#include <optional>

namespace HelpRules {

// Designed places of the help window, in twips.
constexpr int BrowserLeft = 30;
constexpr int BrowserTop = 420;
// What the window's sizable frame and title bar add to the inner size, in twips: the browser
// rule below works on the outer size.
constexpr int FrameWidth = 120;
constexpr int FrameHeight = 480;

// The address of the local file `path`, with `anchor` as its fragment when not empty. The
// fragment is set on the built address: handed in with the path, a "#" would be taken as part
// of the file name (and a "#" that is part of a folder name stays one).
QUrl pageAddress(const QString& path, const QString& anchor = QString());

// Back and Forward act only while the address shown contains "#", that is while it points at
// an anchor inside the page; on the plain page they do nothing.
bool pointsInsidePage(const QUrl& shown);

// The browser's size for an outer window size (both in twips): width = window width - 120,
// height = window height - 480 - 420. A size that cannot be set (below 0) is empty and the
// browser keeps its old one in that direction; the other direction is still set.
struct BrowserSize {
    std::optional<int> width;
    std::optional<int> height;
};
BrowserSize browserSize(QSize windowTwips);

} // namespace HelpRules
