// The "mlh" container layout and the arithmetic around it, free of any file access:
//   offset 0  3 bytes  "mlh"
//   offset 3  4 bytes  signed 32-bit original length, little-endian
//   offset 7  3 bytes  last three characters of the source name, blank-padded on the right
//   offset 10 rest     a zlib stream (RFC 1950) as compress2 produces it
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

namespace zipformat {

inline constexpr qsizetype kHeaderSize = 10;
inline constexpr char kSignature[] = "mlh";
// The longest original the 32-bit length field can describe.
inline constexpr qint64 kMaxOriginalSize = 0x7fffffff;
// Deflate never expands data by more than this factor (258 bytes from one 2-bit match).
inline constexpr qint64 kMaxExpansion = 1032;

struct Header {
    qint32 originalSize = 0;
    QByteArray extension; // exactly three bytes
};

// Rounds to the nearest whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
double roundHalfEven(double value);

// The work-buffer length B for n input bytes: n * 0.01 + n + 12, rounded half to even.
// The buffer itself holds B + 1 bytes. n must be >= 0.
qint64 bufferBound(qint64 n);

// A compression level from any value: converted to text, read with leadingNumber() (see
// core/leadingnumber.h), rounded half to even and clamped to 1..9 (NaN and text without a
// number give 1).
qint16 levelFromValue(const QVariant& value);

// The extension field for a source name: its last three characters, blank-padded on the
// right when shorter. A character above U+00FF is stored as '_'.
QByteArray extensionField(const QString& sourceFile);

// The ten header bytes.
QByteArray buildHeader(qint32 originalSize, const QString& sourceFile);

// The header of `bytes`, or nothing when they do not start with the signature. The caller
// checks the length (a short header with the signature is a damaged container).
std::optional<Header> parseHeader(const QByteArray& bytes);

// The extension to append on restoring: the stored field without its blank padding, with
// '/' and NUL replaced by '_' so a container can never name a file in another folder.
QString restoredExtension(const QByteArray& field);

// Whether a zlib stream of `streamLength` bytes can possibly expand to `originalSize` bytes
// and the size lies within 0..limit.
bool plausibleOriginalSize(qint64 originalSize, qint64 streamLength, qint64 limit);

} // namespace zipformat
