// The benchmarks' input files; see benchfiles.h.
#include "benchfiles.h"

#include <QFile>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

const QString kConsonants = QStringLiteral("bcdfghjklmnprstvwxz"); // 19
const QString kVowels = QStringLiteral("aeiouy") + QChar(0x00E9);  // 7, with e acute

QStringList shippedWords() {
    QFile file(BenchFiles::shipped());
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(BenchFiles::shipped()));
        std::exit(1);
    }
    QStringList words;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QString word = QString::fromUtf8(line).trimmed();
        if (word.size() == 4)
            words << word;
    }
    return words;
}

// Distinct words drawn from the letter frequencies of `model` at each position, after the
// model's own words, until there are `count`.
QStringList drawnWords(const QStringList& model, int count, unsigned seed) {
    std::array<QString, 4> columns; // every letter at each position, as often as it occurs
    for (const QString& w : model) {
        for (int k = 0; k < 4; ++k)
            columns[static_cast<size_t>(k)] += w[k];
    }
    std::mt19937 random(seed);
    QStringList words = model;
    QSet<QString> seen(model.begin(), model.end());
    while (words.size() < count) {
        QString w;
        for (const QString& column : columns)
            w += column[static_cast<qsizetype>(random() % column.size())];
        if (!seen.contains(w)) {
            seen.insert(w);
            words << w;
        }
    }
    return words;
}

// `count` distinct lines: three characters from `letters` (each drawn by `draw`) and one of
// `specials` at a random place.
template <typename Draw>
QStringList linesWithOneOf(const QString& specials, int count, unsigned seed, Draw draw) {
    std::mt19937 random(seed);
    QStringList lines;
    QSet<QString> seen;
    while (lines.size() < count) {
        QString w;
        for (int k = 0; k < 3; ++k)
            w += draw(random, k);
        w.insert(static_cast<qsizetype>(random() % 4), specials[random() % specials.size()]);
        if (!seen.contains(w)) {
            seen.insert(w);
            lines << w;
        }
    }
    return lines;
}

} // namespace

BenchFiles::BenchFiles() {
    if (!m_dir.isValid()) {
        std::fprintf(stderr, "cannot create a temporary folder\n");
        std::exit(1);
    }
    m_model = shippedWords();
}

QString BenchFiles::words16k() {
    if (m_words16k.isEmpty())
        m_words16k = write(QStringLiteral("words16k.txt"), drawnWords(m_model, 16000, 16000));
    return m_words16k;
}

QString BenchFiles::words12k() {
    return write(QStringLiteral("words12k.txt"), drawnWords(m_model, 12000, 12000));
}

QString BenchFiles::lines100k() {
    if (m_lines100k.isEmpty())
        m_lines100k = write(QStringLiteral("lines100k.txt"), drawnWords(m_model, 100000, 100000));
    return m_lines100k;
}

QString BenchFiles::lines5m() {
    const QString path = m_dir.filePath(QStringLiteral("lines5m.txt"));
    if (QFile::exists(path))
        return path;
    std::array<QByteArray, 4> columns; // every letter at each position, as often as it occurs
    for (const QString& w : m_model) {
        for (int k = 0; k < 4; ++k)
            columns[static_cast<size_t>(k)] += w[k].toLatin1();
    }
    std::mt19937 random(5000000);
    QByteArray text;
    text.reserve(5000000 * 6);
    for (int n = 0; n < 5000000; ++n) {
        for (const QByteArray& column : columns)
            text += column[static_cast<qsizetype>(random() % column.size())];
        text += "\r\n";
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(1);
    }
    return path;
}

QString BenchFiles::shipped() {
    return QStringLiteral(PENTALINK_SHIPPED_DICTIONARY);
}

QString BenchFiles::noPuzzle(int words) {
    const QString name = QStringLiteral("nopuzzle%1.txt").arg(words);
    if (QFile::exists(m_dir.filePath(name)))
        return m_dir.filePath(name);
    QStringList all;
    for (const QChar a : kConsonants)
        for (const QChar b : kVowels)
            for (const QChar c : kConsonants)
                for (const QChar d : kVowels)
                    all << QString(a) + b + c + d;
    std::mt19937 random(static_cast<unsigned>(words));
    std::shuffle(all.begin(), all.end(), random);
    return write(name, all.mid(0, words));
}

QString BenchFiles::patternWords16k() {
    std::array<QString, 4> columns; // every letter at each position, as often as it occurs
    for (const QString& w : m_model) {
        for (int k = 0; k < 4; ++k)
            columns[static_cast<size_t>(k)] += w[k];
    }
    return write(
        QStringLiteral("patterns16k.txt"),
        linesWithOneOf(QStringLiteral("?*#["), 16000, 17, [&](std::mt19937& random, int k) {
            const QString& column = columns[static_cast<size_t>(k)];
            return column[random() % column.size()];
        }));
}

QString BenchFiles::patternNoPuzzle16k() {
    const QString consonants = QStringLiteral("bcdfghjklmnpqrstvwxz");
    return write(QStringLiteral("patternsnopuzzle16k.txt"),
                 linesWithOneOf(QStringLiteral("#"), 16000, 18, [&](std::mt19937& random, int) {
                     return consonants[random() % consonants.size()];
                 }));
}

QString BenchFiles::hashXyz16k() {
    const QStringList distinct =
        linesWithOneOf(QStringLiteral("#"), 108, 19, [](std::mt19937& random, int) {
            return QStringLiteral("xyz")[random() % 3];
        });
    std::mt19937 random(20);
    QStringList lines;
    while (lines.size() < 16000)
        lines << distinct[random() % distinct.size()];
    return write(QStringLiteral("hashxyz16k.txt"), lines);
}

QString BenchFiles::write(const QString& name, const QStringList& lines) const {
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write((lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8()) < 0) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(1);
    }
    return path;
}
