// clsZip: packs one file into an "mlh" container with zlib and restores it, and answers
// questions about the file system holding a path. Depends on QtCore and zlib only; the two
// questions it may put to the player go through a Notifier.
//
// Container layout: see zipformat.h.
//
// Behaviour beyond the plain round trip:
//  - Every failure that stops an operation throws ZipError (number, source, description):
//    zlib's own failures carry zlib's (negative) result code, source "clsZip.CompressFile()"
//    or "clsZip.DecompressFile()" and the description "Error compressing byte array" or
//    "Error decompressing byte array"; a missing source gives ZipError::FileNotFound, any
//    other open, read or write failure ZipError::FileAccess.
//  - A source larger than sizeLimit() (at most 2^31 - 1 bytes, what the 32-bit length field
//    can describe) is refused with ZipError::FileTooLarge before it is read.
//  - A container is untrusted input. Before anything large is allocated it is refused with
//    ZipError::DamagedContainer when its header is shorter than ten bytes, or its stored
//    length is negative, above sizeLimit(), or more than the stream that follows could
//    expand to (deflate's ratio is at most 1032:1). Only the part of the file a valid stream
//    of the stored length could occupy is read; zlib ignores whatever follows a stream.
//  - A truncated or corrupt stream, or one that decodes to a length other than the stored
//    one, is a zlib failure (Z_DATA_ERROR for a length mismatch): nothing is written and an
//    existing destination is left alone.
//  - A file whose first three bytes are not "mlh" gets the notice "This file is not
//    recognized as a compressed file" (titled with the application's name); nothing is
//    written and no error is thrown.
//  - An empty source file is a valid input: its container holds the length 0 and the
//    8-byte zlib stream of no data, and restores to an empty file.
//  - On restoring, the stored extension is appended ("." + field) unless the fourth
//    character from the end of DestinationFile is "."; a destination shorter than four
//    characters has no such character and so always gets the extension ("out" becomes
//    "out.txt"). The field's blank padding is dropped, '/' and NUL become '_', and a field
//    of blanks appends nothing.
//  - The free-space guard asks about the file system holding the destination (the nearest
//    existing folder for a file not yet there) and names its mount point in the message.
//  - A container is decoded in bounded chunks and its output streamed to the destination,
//    so restoring a container of n bytes needs about n bytes of memory plus a fixed amount,
//    whatever length it claims and however much it really holds. Decoding stops as soon as
//    the output passes the stored length or the stream ends early.
//  - Destinations are written whole to a temporary file in the destination's folder and
//    renamed over the destination only after a complete write. An existing destination is
//    kept until then: a cancelled free-space question, a full disk or a killed process
//    leaves the old file as it was.
#pragma once

#include "components/drivespace.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <functional>

class Notifier;

class clsZip {
public:
    // Asks about the file system holding a path (the real one by default; tests replace it).
    using SpaceQuery = std::function<DriveSpace(const QString& path)>;

    // `notifier` must outlive the object.
    explicit clsZip(Notifier& notifier, SpaceQuery spaceQuery = querySpace);

    // Compresses SourceFile into the container DestinationFile (replacing it). Returns true
    // when the container was written, false when the free-space guard was cancelled (an old
    // destination is then kept). Throws ZipError as described above.
    bool CompressFile(const QString& SourceFile, const QString& DestinationFile);

    // Restores the container SourceFile to DestinationFile, extended by the stored
    // extension as described above. Returns true when the file was written; false for a
    // file that is not a container or a cancelled free-space guard. Throws ZipError.
    bool DecompressFile(const QString& SourceFile, const QString& DestinationFile);

    // The zlib level, 1..9, as a 16-bit whole number in a variant.
    QVariant CompressLevel() const { return QVariant::fromValue<qint16>(m_compressLevel); }
    // Any value: converted to text, its leading number rounded half to even, clamped to 1..9.
    void setCompressLevel(const QVariant& vNewValue);

    // Lengths of the last operation; both 0 after a successful decompression.
    qint32 CompressedSize() const { return m_compressedSize; }
    qint32 OriginalSize() const { return m_originalSize; }

    // The kind of the file system holding DriveLetter (a path), as a DriveKind value;
    // DriveUnknown for an empty or unanswerable path.
    qint16 DriveType(const QString& DriveLetter) const;
    // Total and free bytes of the file system holding the path, -1 for an empty path, 0 when
    // the query failed. Each call queries afresh.
    double SpaceTotal(const QString& DrivePath);
    double SpaceFree(const QString& DrivePath);

    // The largest original accepted in either direction, at most (and by default)
    // zipformat::kMaxOriginalSize.
    qint64 sizeLimit() const { return m_sizeLimit; }
    void setSizeLimit(qint64 bytes);

private:
    int compressBytes(QByteArray& data);
    bool querySpaceOf(const QString& path);
    bool freeSpaceGuard(const QString& destination, qint64 bytes);

    Notifier& m_notifier;
    SpaceQuery m_spaceQuery;
    qint32 m_compressedSize = 0;
    qint32 m_originalSize = 0;
    qint16 m_compressLevel = 6;
    double m_freeBytes = 0;
    double m_totalBytes = 0;
    QString m_lastRoot;
    qint64 m_sizeLimit;
};
