// The parser's measure of the help page; see helpdocument.h.
#include "ui/helpdocument.h"

#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>

namespace {

// Frames below `frame`: every table is one (any other frame counts as one too).
int framesBelow(const QTextFrame* frame) {
    int deepest = 0;
    for (const QTextFrame* child : frame->childFrames())
        deepest = std::max(deepest, 1 + framesBelow(child));
    return deepest;
}

} // namespace

int helpTableDepth(const QString& html) {
    QTextDocument scratch;
    scratch.setHtml(html);
    return framesBelow(scratch.rootFrame());
}
