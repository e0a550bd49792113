// Parsing pentalink-gen's command line; see genoptions.h.
#include "genoptions.h"

#include "core/commandline.h"

#include <QCommandLineParser>

GenParseResult parseGenOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QCommandLineOption version = versionOption();
    const QCommandLineOption dictionary(
        QStringLiteral("dictionary"),
        QStringLiteral("the dictionary file (default: english1.txt of the program folder)"),
        QStringLiteral("FILE"));
    const QCommandLineOption count(QStringLiteral("count"),
                                   QStringLiteral("how many puzzles to request (default 1; "
                                                  "1000 at most in a booklet)"),
                                   QStringLiteral("N"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("seed of the dictionary shuffle, 0 to 2^64-1 "
                                                 "(default: a random seed)"),
                                  QStringLiteral("S"));
    const QCommandLineOption noShuffle(
        QStringLiteral("no-shuffle"),
        QStringLiteral("keep file order: each word followed by its reverse"));
    const QCommandLineOption format(QStringLiteral("format"),
                                    QStringLiteral("output format: text (default) or json"),
                                    QStringLiteral("FORMAT"));
    const QCommandLineOption booklet(
        QStringLiteral("booklet"),
        QStringLiteral("write a printable booklet, answers at the back, as the PDF file FILE"),
        QStringLiteral("FILE"));
    const QCommandLineOption perPage(QStringLiteral("per-page"),
                                     QStringLiteral("puzzles on a booklet page: 1, 2 or 4 "
                                                    "(default 4)"),
                                     QStringLiteral("N"));
    const QCommandLineOption paper(QStringLiteral("paper"),
                                   QStringLiteral("the booklet's paper: a4 or letter (default: "
                                                  "the locale's)"),
                                   QStringLiteral("PAPER"));
    const QCommandLineOption title(
        QStringLiteral("title"),
        QStringLiteral("the booklet's title line (default \"Pentalink puzzles\")"),
        QStringLiteral("TEXT"));
    const QList<QCommandLineOption> all = {dictionary, count, seed,  noShuffle, format, booklet,
                                           perPage,    paper, title, help,      version};
    parser.addOptions(all);

    GenParseResult result;
    auto fail = [&result](const QString& message) {
        result.status = GenParseResult::Status::Error;
        result.message = message;
        return result;
    };
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    if (parser.isSet(help)) {
        result.status = GenParseResult::Status::Print;
        result.message = gnuHelpText(
            QStringLiteral("pentalink-gen [OPTION]..."),
            QStringLiteral("Makes Pentalink puzzles from a dictionary, as successive clicks on the "
                           "game's\ncreate button would."),
            all,
            QStringLiteral("Exit status is 0 on success, 2 for bad arguments, an unreadable or "
                           "empty\ndictionary, or a booklet that cannot be made or written. See\n"
                           "pentalink-gen(6) for the output formats."));
        return result;
    }
    if (parser.isSet(version)) {
        result.status = GenParseResult::Status::Print;
        result.message = versionText(QStringLiteral("pentalink-gen"));
        return result;
    }
    if (!parser.positionalArguments().isEmpty())
        return fail(QStringLiteral("Unexpected argument '%1'.")
                        .arg(parser.positionalArguments().constFirst()));

    GenOptions& options = result.options;
    if (parser.isSet(dictionary)) {
        options.dictionary = parser.value(dictionary);
        if (options.dictionary.isEmpty())
            return fail(QStringLiteral("--dictionary needs a file name."));
    }
    if (parser.isSet(booklet)) {
        options.booklet = parser.value(booklet);
        if (options.booklet.isEmpty())
            return fail(QStringLiteral("--booklet needs a file name."));
        if (parser.isSet(format))
            return fail(QStringLiteral("--format does not go with --booklet."));
    } else {
        for (const QCommandLineOption& option : {perPage, paper, title}) {
            if (parser.isSet(option))
                return fail(QStringLiteral("--%1 needs --booklet.").arg(option.names().first()));
        }
    }
    if (parser.isSet(count)) {
        bool ok = false;
        options.count = parser.value(count).toInt(&ok);
        const bool inBooklet = !options.booklet.isEmpty();
        if (!ok || options.count < 1 || (inBooklet && options.count > Booklet::MaxPuzzles))
            return fail((inBooklet ? QStringLiteral("--count of a booklet needs a whole number "
                                                    "from 1 to %1, not '%2'.")
                                         .arg(Booklet::MaxPuzzles)
                                   : QStringLiteral("--count needs a whole number of at least 1, "
                                                    "not '%1'."))
                            .arg(parser.value(count)));
    }
    if (parser.isSet(perPage)) {
        const QString value = parser.value(perPage);
        options.perPage = value == u"1" ? 1 : value == u"2" ? 2 : value == u"4" ? 4 : 0;
        if (options.perPage == 0)
            return fail(QStringLiteral("--per-page must be 1, 2 or 4, not '%1'.").arg(value));
    }
    if (parser.isSet(paper)) {
        const QString value = parser.value(paper);
        if (value.compare(u"a4", Qt::CaseInsensitive) == 0)
            options.paper = Booklet::Paper::A4;
        else if (value.compare(u"letter", Qt::CaseInsensitive) == 0)
            options.paper = Booklet::Paper::Letter;
        else
            return fail(QStringLiteral("--paper must be a4 or letter, not '%1'.").arg(value));
    }
    if (parser.isSet(title))
        options.title = parser.value(title);
    if (parser.isSet(seed)) {
        bool ok = false;
        const quint64 value = parser.value(seed).toULongLong(&ok);
        if (!ok)
            return fail(QStringLiteral("--seed needs a whole number from 0 to "
                                       "18446744073709551615, not '%1'.")
                            .arg(parser.value(seed)));
        options.seed = value;
    }
    options.shuffle = !parser.isSet(noShuffle);
    if (parser.isSet(format)) {
        const QString value = parser.value(format);
        if (value == QStringLiteral("text"))
            options.format = GenOptions::Format::Text;
        else if (value == QStringLiteral("json"))
            options.format = GenOptions::Format::Json;
        else
            return fail(QStringLiteral("--format must be text or json, not '%1'.").arg(value));
    }
    return result;
}
