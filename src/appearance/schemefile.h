// Reading and rewriting the scheme collection file "all.col" as whole lines. QtCore only.
//
// A section is a header line (such as "xp.col") followed by the thirteen colour lines of
// colours 0 to 12; every other line is carried through a rewrite unchanged.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace SchemeFile {

// Lines of a section after its header.
constexpr int ColourLines = 13;
// A larger collection is refused as damaged rather than read into memory.
constexpr qint64 MaxBytes = 4 * 1024 * 1024;

// Writes `bytes` as the whole content of `path`; true only when every byte reached the disk
// and the file was put in place. Must leave an existing file untouched on failure.
using Writer = std::function<bool(const QString& path, const QByteArray& bytes)>;

// The lines of the file at `path` (ended by CR LF, LF or CR; UTF-8 when valid, else
// Windows-1252). Empty when the file is missing, unreadable, not a regular file (a FIFO there
// is never waited on) or larger than MaxBytes.
std::optional<QStringList> readLines(const QString& path);

// The bytes the program writes for `lines`: UTF-8, every line ended by CR LF.
QByteArray toBytes(const QStringList& lines);

// toBytes(lines), or nothing when readLines() would refuse the result (more than MaxBytes):
// a rewrite must never leave a collection the program can no longer read.
std::optional<QByteArray> toReadableBytes(const QStringList& lines);

// `lines` with every section headed exactly `header` (the header and the ColourLines lines
// after it) dropped, and `replacement` written in the place of each. Empty when a matching
// header has fewer than ColourLines lines after it (a section cut short).
std::optional<QStringList> rewriteSections(const QStringList& lines, const QString& header,
                                           const QStringList& replacement);

} // namespace SchemeFile
