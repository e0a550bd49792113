// The help page's bounds against the browser's own parser and layout: any bytes as
// "pentalink.htm" are either shown as they decode or replaced by a short page saying why; a
// page that is shown is within every bound, the browser's document nests its tables no deeper
// than allowed, and it lays out (libFuzzer's time limit stops a page that takes seconds).
#include "fuzzsupport.h"

#include "ui/helpdocument.h"
#include "ui/helppage.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QStringDecoder>
#include <QTextDocument>

// The font library keeps what it finds for the first text that needs a fallback font for as
// long as the process lives; that is a cache, not a leak of the code under test.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(*argc, *argv); // fonts, for the layout
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    const QString html = decoder.decode(bytes);
    const QString shown =
        HelpPage::showable(bytes, QStringLiteral("pentalink.htm"), helpTableDepth);
    if (shown != html) {
        check(shown.startsWith(QStringLiteral("<p>The help page pentalink.htm is not shown: ")),
              "a page that is not shown is replaced by the reason");
        return 0;
    }
    check(HelpPage::refusal(HelpPage::measure(html)).isEmpty(), "a shown page is within bounds");
    const int depth = helpTableDepth(html);
    check(depth <= HelpPage::MaxTableDepth, "a shown page nests tables no deeper than allowed");
    QTextDocument document;
    document.setHtml(html);
    document.setTextWidth(600);
    check(document.documentLayout()->documentSize().width() > 0, "a shown page lays out");
    return 0;
}
