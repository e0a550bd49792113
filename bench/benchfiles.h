// The benchmarks' input files, written deterministically (fixed seeds) into a temporary folder
// that lives as long as the object:
//   - the shipped dictionary (data/english1.txt of the source tree, read in place);
//   - a 16,000-word dictionary: the shipped words, then distinct words drawn letter by letter
//     from the shipped words' letter frequencies at each position;
//   - dictionaries that never give a puzzle: distinct consonant-vowel-consonant-vowel words
//     ("bako"). A word's reverse is vowel-consonant-vowel-consonant, so no third word can
//     cross the second one and every attempt fails;
//   - a 100,000-line file in which every line is a four-letter word (the heaviest load per
//     line: every line is accepted and gives two entries);
//   - dictionaries of pattern characters: distinct random lines of three letters (drawn like
//     the 16,000 words) and one of "?", "*", "#", "[" at a random place; distinct lines of one
//     "#" and three of twenty consonants, which never give a puzzle (every line of the star
//     would need its one "#" cell, but five lines cannot share cells two by two); and lines of
//     one "#" and three of x, y, z, repeated (108 different lines), which never give one either.
// Lines end with CR LF.
#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class BenchFiles {
public:
    BenchFiles();

    static QString shipped();
    // Each file is written on first use.
    QString words16k();
    // A 12,000-word dictionary drawn like the 16,000 words.
    QString words12k();
    QString lines100k();
    // 5,000,000 lines of four letters drawn like the 16,000 words, repeats allowed (25 MB).
    QString lines5m();
    // A dictionary of `words` distinct consonant-vowel words (at most 17,689), written on
    // first use.
    QString noPuzzle(int words);
    QString patternWords16k();
    QString patternNoPuzzle16k();
    QString hashXyz16k();

private:
    QString write(const QString& name, const QStringList& lines) const;

    QTemporaryDir m_dir;
    QString m_words16k;
    QString m_lines100k;
    QStringList m_model; // the shipped words
};
