// GNU-form help and version texts and the game's argument check; see commandline.h.
#include "core/commandline.h"

#include <algorithm>

namespace {

// "  -h, --help" or "      --count=N": short names take the first column, long names line
// up after it.
QString optionNames(const QCommandLineOption& option) {
    QString shortName;
    QString longName;
    for (const QString& name : option.names()) {
        if (name.size() == 1)
            shortName = u'-' + name;
        else
            longName = QStringLiteral("--") + name;
    }
    if (!option.valueName().isEmpty())
        longName += u'=' + option.valueName();
    return (shortName.isEmpty() ? QStringLiteral("      ")
                                : QStringLiteral("  ") + shortName + QStringLiteral(", ")) +
           longName;
}

QString quoted(const QStringList& arguments) {
    QStringList out;
    for (const QString& argument : arguments)
        out << u'\'' + argument + u'\'';
    return out.join(u' ');
}

} // namespace

QString versionText(const QString& program) {
    return program + QStringLiteral(" (Pentalink) ") + QStringLiteral(PENTALINK_VERSION) +
           QStringLiteral("\nCopyright (C) 2026 the Pentalink developers.\n"
                          "License GPLv3+: GNU GPL version 3 or later "
                          "<https://gnu.org/licenses/gpl.html>.\n"
                          "This is free software: you are free to change and redistribute it.\n"
                          "There is NO WARRANTY, to the extent permitted by law.\n");
}

QString gnuHelpText(const QString& usage, const QString& description,
                    const QList<QCommandLineOption>& options, const QString& epilogue) {
    QString text = QStringLiteral("Usage: ") + usage + u'\n' + description + QStringLiteral("\n\n");
    // Descriptions line up two blanks after the longest option.
    qsizetype width = 0;
    for (const QCommandLineOption& option : options)
        width = std::max(width, optionNames(option).size());
    for (const QCommandLineOption& option : options)
        text += optionNames(option).leftJustified(width + 2) + option.description() + u'\n';
    if (!epilogue.isEmpty())
        text += u'\n' + epilogue + (epilogue.endsWith(u'\n') ? QString() : QStringLiteral("\n"));
    return text;
}

QCommandLineOption helpOption() {
    return QCommandLineOption({QStringLiteral("h"), QStringLiteral("help")},
                              QStringLiteral("display this help and exit"));
}

QCommandLineOption versionOption() {
    return QCommandLineOption({QStringLiteral("V"), QStringLiteral("version")},
                              QStringLiteral("output version information and exit"));
}

GameArguments parseGameArguments(const QStringList& arguments) {
    GameArguments result;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (result.action == GameArguments::Action::Run) {
            if (argument == QStringLiteral("--help") || argument == QStringLiteral("-h")) {
                result.action = GameArguments::Action::Help;
                continue;
            }
            if (argument == QStringLiteral("--version") || argument == QStringLiteral("-V")) {
                result.action = GameArguments::Action::Version;
                continue;
            }
        }
        result.ignored << argument;
    }
    return result;
}

QString gameHelpText() {
    return gnuHelpText(
        QStringLiteral("pentalink [OPTION]..."),
        QStringLiteral("Pentalink, a word puzzle: place five four-letter words in a star grid."),
        {helpOption(), versionOption()},
        QStringLiteral(
            "The toolkit's own options (such as -platform or -style) are accepted; any other\n"
            "argument is ignored with a warning.\n"
            "\n"
            "The game keeps its files (dictionary, colour schemes, settings) in the folder\n"
            "named by $PENTALINK_HOME; else in the executable's folder when that holds\n"
            "all.col and is writable; else in ~/.local/share/pentalink, which the first\n"
            "start fills with copies of the installed data files.\n"
            "\n"
            "See pentalink(6) and the game's help page (File > Help) for more."));
}

QString ignoredArgumentsWarning(const QStringList& ignored) {
    if (ignored.isEmpty())
        return {};
    return QStringLiteral("pentalink: ignoring unknown argument%1 %2\n")
        .arg(ignored.size() == 1 ? QString() : QStringLiteral("s"), quoted(ignored));
}
