// pentalink-gen's booklets; see genbooklet.h.
#include "genbooklet.h"

#include "board/booklet.h"
#include "board/pdffile.h"
#include "board/sheetpainter.h"
#include "core/stargrid.h"

#include <QFileInfo>
#include <QPainter>

Booklet::Paper localePaper() {
    for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
        const QString value = qEnvironmentVariable(name);
        if (!value.isEmpty())
            return Booklet::paperForLocale(value);
    }
    return Booklet::Paper::A4;
}

void useOffscreenPlatform() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

SheetContent bookletContent(const StarGrid& grid) {
    SheetContent content;
    content.captions = grid.CandidateWords;
    content.decoyFlags = grid.DecoyFlags;
    content.solutionLetters = grid.SolutionLetters;
    return content;
}

namespace {

// `text` as one shell word.
QString shellWord(const QString& text) {
    static const QString plain =
        QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./=+,:@%");
    for (const QChar c : text) {
        if (!plain.contains(c))
            return u'\'' + QString(text).replace(u'\'', QStringLiteral("'\\''")) + u'\'';
    }
    return text;
}

} // namespace

QStringList closingLines(const GenOptions& options, quint64 seed, int made) {
    const Booklet::Paper paper = options.paper.value_or(localePaper());
    QStringList command = {
        QStringLiteral("pentalink-gen"),
        shellWord(QStringLiteral("--booklet=") + QFileInfo(options.booklet).fileName()),
        QStringLiteral("--count=%1").arg(options.count),
        QStringLiteral("--seed=%1").arg(seed),
        QStringLiteral("--per-page=%1").arg(options.perPage),
        paper == Booklet::Paper::Letter ? QStringLiteral("--paper=letter")
                                        : QStringLiteral("--paper=a4"),
    };
    if (!options.dictionary.isEmpty())
        command << shellWord(QStringLiteral("--dictionary=") +
                             QFileInfo(options.dictionary).fileName());
    if (!options.shuffle)
        command << QStringLiteral("--no-shuffle");
    if (options.title != Booklet::DefaultTitle)
        command << shellWord(QStringLiteral("--title=") + options.title);
    QStringList lines = {
        QStringLiteral("Seed %1. Made with: %2").arg(seed).arg(command.join(u' '))};
    if (made < options.count)
        lines << QStringLiteral("The dictionary gave %1 of the %2 puzzles asked for.")
                     .arg(made)
                     .arg(options.count);
    return lines;
}

QString writeBooklet(const GenOptions& options, const QList<SheetContent>& puzzles,
                     const QStringList& closing) {
    BookletSettings settings;
    settings.paper = options.paper.value_or(localePaper());
    settings.perPage = options.perPage;
    settings.title = options.title;
    settings.closingLines = closing;
    const QList<BookletPage> pages = composeBooklet(puzzles, settings);
    const QPageSize pageSize(settings.paper == Booklet::Paper::Letter ? QPageSize::Letter
                                                                      : QPageSize::A4);
    const PdfDocument document{options.title, QStringLiteral("pentalink-gen"), pageSize,
                               int(pages.size())};
    return writePdf(options.booklet, document, [&pages](QPainter& painter, int index) {
        paintBookletPage(painter, pages[index]);
    });
}
