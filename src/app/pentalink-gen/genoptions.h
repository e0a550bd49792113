// Command-line options of pentalink-gen.
#pragma once

#include "board/booklet.h"

#include <QString>
#include <QStringList>

#include <optional>

struct GenOptions {
    enum class Format { Text, Json };

    QString dictionary; // "" -> the program folder's english1.txt
    int count = 1;      // create requests to make, >= 1
    std::optional<quint64> seed;
    bool shuffle = true;
    Format format = Format::Text;

    QString booklet;                     // the booklet's PDF file; "" prints the puzzles instead
    int perPage = 4;                     // puzzles on a booklet page: 1, 2 or 4
    std::optional<Booklet::Paper> paper; // none: the paper of the user's locale
    QString title = Booklet::DefaultTitle;
};

struct GenParseResult {
    enum class Status { Run, Print, Error }; // Print: print `message` (help or version), exit 0
    Status status = Status::Run;
    GenOptions options;
    QString message; // the help or version text, or what is wrong with the arguments
};

// Parses the arguments (argv[0] first).
GenParseResult parseGenOptions(const QStringList& arguments);
