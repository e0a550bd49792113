// The command lines of the game and of pentalink-gen in the usual GNU form: the help and
// version texts, and the game's own small argument check.
#pragma once

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringList>

// "<program> (Pentalink) <version>", the copyright and licence lines; ends with "\n".
QString versionText(const QString& program);

// GNU help: "Usage: <usage>", the description, one aligned line per option ("  -h, --help",
// "      --count=N"), then `epilogue` when not empty; ends with "\n".
QString gnuHelpText(const QString& usage, const QString& description,
                    const QList<QCommandLineOption>& options, const QString& epilogue = {});

// The options every program answers before doing anything else.
QCommandLineOption helpOption();
QCommandLineOption versionOption();

// What the game's command line asks for. The game takes no arguments of its own: --help and
// --version print and exit, anything else is ignored (after the toolkit has taken its own).
struct GameArguments {
    enum class Action { Run, Help, Version };
    Action action = Action::Run;
    QStringList ignored; // every argument that is neither help nor version, in order
};

// Reads `arguments` (argv[0] first). The first help or version option decides the action.
GameArguments parseGameArguments(const QStringList& arguments);

// The game's --help text.
QString gameHelpText();

// One line (ending with "\n") naming the ignored arguments; "" when there are none.
QString ignoredArgumentsWarning(const QStringList& ignored);
