// Reading and writing the configuration file; see configfile.h for the format.
#include "core/configfile.h"

#include "core/atomicwrite.h"
#include "core/notifier.h"
#include "core/regularfile.h"
#include "core/textdecoding.h"

#include <optional>
#include <utility>

namespace {

// A configuration file is five short lines; anything this large is not one.
constexpr qint64 kMaxFileSize = 64 * 1024;

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

qsizetype skipBlanks(const QString& line, qsizetype i) {
    while (i < line.size() && isBlank(line.at(i)))
        ++i;
    return i;
}

QString fontField(const QString& line) {
    const qsizetype start = skipBlanks(line, 0);
    if (start < line.size() && line.at(start) == u'"') {
        // A doubled quote inside the quotes stands for one quote.
        QString field;
        for (qsizetype i = start + 1; i < line.size(); ++i) {
            if (line.at(i) != u'"') {
                field += line.at(i);
            } else if (i + 1 < line.size() && line.at(i + 1) == u'"') {
                field += u'"';
                ++i;
            } else {
                break;
            }
        }
        return field;
    }
    const qsizetype comma = line.indexOf(u',', start);
    QString field = comma < 0 ? line.mid(start) : line.mid(start, comma - start);
    while (!field.isEmpty() && isBlank(field.back()))
        field.chop(1);
    return field;
}

std::optional<qint32> sizeField(const QString& line) {
    const qsizetype start = skipBlanks(line, 0);
    qsizetype end = start;
    while (end < line.size() && !isBlank(line.at(end)) && line.at(end) != u',')
        ++end;
    bool ok = false;
    const int value = line.mid(start, end - start).toInt(&ok, 10);
    if (!ok)
        return std::nullopt;
    return value;
}

QString oneLine(QString value) {
    value.replace(u'\r', u' ');
    value.replace(u'\n', u' ');
    return value;
}

// The font name as fontField() gives it back: quoted, with its quotes doubled, when it has
// blanks at either end, a comma or a quote; as it stands otherwise (so "Arial" stays Arial).
QString fontLine(const QString& name) {
    const bool plain = !name.contains(u',') && !name.contains(u'"') &&
                       (name.isEmpty() || (!isBlank(name.front()) && !isBlank(name.back())));
    if (plain)
        return name;
    QString quoted = name;
    quoted.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return u'"' + quoted + u'"';
}

struct FileValues {
    QString schemeFile;
    QString dictionaryLine;
    QString fontName;
    qint32 fontSize = 0;
};

std::optional<FileValues> readValues(const QString& path) {
    const RegularFileRead read = readRegularFile(path, kMaxFileSize);
    if (read.status != RegularFileRead::Status::Read)
        return std::nullopt;
    const QStringList lines = splitTextLines(decodeText(read.bytes));
    if (lines.size() < 5)
        return std::nullopt;
    // A size the Options window cannot set (tiny, negative, clipping) is as damaged as none.
    const std::optional<qint32> size = sizeField(lines.at(4));
    if (!size || *size < Settings::MinBoardFontSize || *size > Settings::MaxBoardFontSize)
        return std::nullopt;
    return FileValues{lines.at(1), lines.at(2), fontField(lines.at(3)), *size};
}

} // namespace

ConfigFile::ConfigFile(Settings& settings, Notifier& notifier, Clock clock)
    : m_settings(settings)
    , m_notifier(notifier)
    , m_clock(std::move(clock)) {}

QString ConfigFile::path() const {
    return m_settings.AppFolder + QStringLiteral("pentalink.cfg");
}

QString ConfigFile::formatFile(const QDateTime& when, const QString& schemeFile,
                               const QString& dictionaryPath, const QString& fontName,
                               qint32 fontSize) {
    const QString crlf = QStringLiteral("\r\n");
    const QString size =
        (fontSize >= 0 ? QStringLiteral(" ") : QString()) + QString::number(fontSize) + u' ';
    return when.toString(QStringLiteral("MM-dd-yyyy HH:mm:ss")) + crlf + oneLine(schemeFile) +
           crlf + oneLine(dictionaryPath) + crlf + fontLine(oneLine(fontName)) + crlf + size + crlf;
}

ConfigFile::ReadResult ConfigFile::ReadcfgFile() {
    if (const std::optional<FileValues> values = readValues(path())) {
        m_settings.ActiveSchemeFile = values->schemeFile;
        m_settings.DictionaryPath = values->dictionaryLine;
        m_settings.DictionaryPath = startupDictionaryPath(m_settings);
        m_settings.BoardFontName = values->fontName;
        m_settings.BoardFontSize = values->fontSize;
        return ReadResult::Read;
    }

    // Missing or damaged: start again from the defaults. The default dictionary line is
    // written as "ENGLISH1.TXT"; read back on a case-sensitive file system it names no file
    // and the dictionary falls back to english1.txt of the program folder.
    const bool written =
        writeFile(formatFile(m_clock(), QStringLiteral("xp.col"), QStringLiteral("ENGLISH1.TXT"),
                             QStringLiteral("Arial"), 18));
    m_settings.ActiveSchemeFile = QStringLiteral("xp.col");
    m_settings.DictionaryPath = QStringLiteral("english1.txt");
    m_settings.BoardFontName = QStringLiteral("Arial");
    return written ? ReadResult::DefaultsWritten : ReadResult::DefaultsNotWritten;
}

bool ConfigFile::SavecfgFile() {
    if (writeFile(formatFile(m_clock(), m_settings.ActiveSchemeFile, m_settings.DictionaryPath,
                             m_settings.BoardFontName, m_settings.BoardFontSize)))
        return true;
    m_notifier.MsgboxA(QStringLiteral("Configuration file:\n") + path() +
                           QStringLiteral("\ncould not be accessed, options not saved"),
                       QStringLiteral("vbcritical+vbok"));
    return false;
}

bool ConfigFile::writeFile(const QString& content) const {
    // A file the reader would refuse as too large must not replace a good one.
    const QByteArray bytes = content.toUtf8();
    return bytes.size() <= kMaxFileSize && writeFileAtomically(path(), bytes);
}
