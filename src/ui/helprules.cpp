// The help window's rules; see helprules.h.
#include "ui/helprules.h"

namespace HelpRules {

QUrl pageAddress(const QString& path, const QString& anchor) {
    QUrl address = QUrl::fromLocalFile(path);
    if (!anchor.isEmpty())
        address.setFragment(anchor);
    return address;
}

bool pointsInsidePage(const QUrl& shown) {
    // The browser reports an in-page step either as the page's address with a fragment or as
    // the bare "#name"; both hold a "#". A "#" in a folder name is encoded as %23.
    return shown.toString().contains(u'#');
}

BrowserSize browserSize(QSize windowTwips) {
    const auto settable = [](int length) -> std::optional<int> {
        if (length < 0)
            return std::nullopt;
        return length;
    };
    return {settable(windowTwips.width() - FrameWidth),
            settable(windowTwips.height() - FrameHeight - BrowserTop)};
}

} // namespace HelpRules
