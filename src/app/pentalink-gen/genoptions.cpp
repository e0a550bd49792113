// Parsing pentalink-gen's command line; see genoptions.h.
#include "genoptions.h"

#include <QCommandLineParser>

GenParseResult parseGenOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Makes Pentalink puzzles from a dictionary, as successive clicks on the "
                       "game's create button would."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption dictionary(
        QStringLiteral("dictionary"),
        QStringLiteral("The dictionary file (default: english1.txt in the program folder)."),
        QStringLiteral("FILE"));
    const QCommandLineOption count(QStringLiteral("count"),
                                   QStringLiteral("How many puzzles to request (default 1)."),
                                   QStringLiteral("N"));
    const QCommandLineOption seed(
        QStringLiteral("seed"),
        QStringLiteral("Seed of the dictionary shuffle, 0 to 18446744073709551615 "
                       "(default: a random seed)."),
        QStringLiteral("S"));
    const QCommandLineOption noShuffle(
        QStringLiteral("no-shuffle"),
        QStringLiteral("Keep the dictionary in file order: each word followed by its reverse."));
    const QCommandLineOption format(QStringLiteral("format"),
                                    QStringLiteral("Output format: text (default) or json."),
                                    QStringLiteral("text|json"));
    parser.addOptions({help, dictionary, count, seed, noShuffle, format});

    GenParseResult result;
    auto fail = [&result](const QString& message) {
        result.status = GenParseResult::Status::Error;
        result.message = message;
        return result;
    };
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    if (parser.isSet(help)) {
        result.status = GenParseResult::Status::Help;
        result.message = parser.helpText();
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
    if (parser.isSet(count)) {
        bool ok = false;
        options.count = parser.value(count).toInt(&ok);
        if (!ok || options.count < 1)
            return fail(QStringLiteral("--count needs a whole number of at least 1, not '%1'.")
                            .arg(parser.value(count)));
    }
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
