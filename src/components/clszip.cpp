// The compressed-file container; see clszip.h.
#include "components/clszip.h"

#include "components/ziperror.h"
#include "components/zipformat.h"
#include "components/zipstream.h"
#include "core/notifier.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

const QString kCompressSource = QStringLiteral("clsZip.CompressFile()");
const QString kDecompressSource = QStringLiteral("clsZip.DecompressFile()");

[[noreturn]] void throwOpenError(const QString& source, const QString& path) {
    if (!QFileInfo::exists(path))
        throw ZipError(ZipError::FileNotFound, source, QStringLiteral("File not found: ") + path);
    throw ZipError(ZipError::FileAccess, source, QStringLiteral("Path/File access error: ") + path);
}

// Writes `path` whole or not at all: `fill` writes the content into a temporary file in the
// same folder, which replaces `path` only once every byte is written. An old file of that
// name is kept until then, and is kept for good when anything fails.
void writeWhole(const QString& source, const QString& path,
                const std::function<bool(QSaveFile&)>& fill) {
    QSaveFile file(path);
    // Unbuffered, so a short write (a full disk) shows in the count write() returns.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !fill(file) || !file.commit()) {
        file.cancelWriting();
        throw ZipError(ZipError::FileAccess, source,
                       QStringLiteral("Path/File access error: ") + path);
    }
}

bool writeAll(QSaveFile& file, const char* data, qsizetype size) {
    return size == 0 || file.write(data, size) == size;
}

} // namespace

clsZip::clsZip(Notifier& notifier, SpaceQuery spaceQuery)
    : m_notifier(notifier)
    , m_spaceQuery(std::move(spaceQuery))
    , m_sizeLimit(zipformat::kMaxOriginalSize) {}

void clsZip::setCompressLevel(const QVariant& vNewValue) {
    m_compressLevel = zipformat::levelFromValue(vNewValue);
}

void clsZip::setSizeLimit(qint64 bytes) {
    m_sizeLimit = std::clamp<qint64>(bytes, 0, zipformat::kMaxOriginalSize);
}

int clsZip::compressBytes(QByteArray& data) {
    m_originalSize = static_cast<qint32>(data.size());
    const qint64 bound = zipformat::bufferBound(data.size());
    QByteArray work(bound + 1, '\0');
    uLongf outLength = static_cast<uLongf>(bound);
    const int result = compress2(reinterpret_cast<Bytef*>(work.data()), &outLength,
                                 reinterpret_cast<const Bytef*>(data.constData()),
                                 static_cast<uLong>(data.size()), m_compressLevel);
    work.truncate(static_cast<qsizetype>(outLength));
    data = std::move(work);
    if (result == Z_OK) {
        if (data.size() > zipformat::kMaxOriginalSize)
            throw ZipError(ZipError::FileTooLarge, kCompressSource,
                           QStringLiteral("The compressed data is larger than 2 GiB"));
        m_compressedSize = static_cast<qint32>(data.size());
    }
    return result;
}

bool clsZip::CompressFile(const QString& SourceFile, const QString& DestinationFile) {
    QFile source(SourceFile);
    if (!source.open(QIODevice::ReadOnly))
        throwOpenError(kCompressSource, SourceFile);
    const qint64 length = source.size();
    if (length > m_sizeLimit)
        throw ZipError(ZipError::FileTooLarge, kCompressSource,
                       QStringLiteral("%1 holds %2 bytes; a compressed file can describe at "
                                      "most %3 bytes")
                           .arg(SourceFile)
                           .arg(length)
                           .arg(m_sizeLimit));
    QByteArray data = source.read(length);
    if (data.size() != length || source.error() != QFileDevice::NoError)
        throw ZipError(ZipError::FileAccess, kCompressSource,
                       QStringLiteral("Path/File access error: ") + SourceFile);
    source.close();

    const int result = compressBytes(data);
    if (result != Z_OK)
        throw ZipError(result, kCompressSource, QStringLiteral("Error compressing byte array"));

    const QByteArray header = zipformat::buildHeader(m_originalSize, SourceFile);
    if (!freeSpaceGuard(DestinationFile, m_compressedSize))
        return false;
    writeWhole(kCompressSource, DestinationFile, [&](QSaveFile& file) {
        return writeAll(file, header.constData(), header.size()) &&
               writeAll(file, data.constData(), data.size());
    });
    return true;
}

bool clsZip::DecompressFile(const QString& SourceFile, const QString& DestinationFile) {
    QFile source(SourceFile);
    if (!source.open(QIODevice::ReadOnly))
        throwOpenError(kDecompressSource, SourceFile);
    const QByteArray headerBytes = source.read(zipformat::kHeaderSize);
    const std::optional<zipformat::Header> header = zipformat::parseHeader(headerBytes);
    if (!header) {
        m_notifier.standardBox(QStringLiteral("This file is not recognized as a compressed file"),
                               QStringLiteral("vbInformation + vbOKOnly"),
                               QCoreApplication::applicationName());
        return false;
    }
    if (headerBytes.size() < zipformat::kHeaderSize)
        throw ZipError(ZipError::DamagedContainer, kDecompressSource,
                       QStringLiteral("The compressed file is damaged: its header is incomplete"));
    const qint64 streamLength = source.size() - zipformat::kHeaderSize;
    if (!zipformat::plausibleOriginalSize(header->originalSize, streamLength, m_sizeLimit))
        throw ZipError(ZipError::DamagedContainer, kDecompressSource,
                       QStringLiteral("The compressed file is damaged: %1 bytes of data cannot "
                                      "restore to the stored length %2")
                           .arg(streamLength)
                           .arg(header->originalSize));

    m_originalSize = header->originalSize;
    QString destination = DestinationFile;
    if (destination.size() < 4 || destination.at(destination.size() - 4) != u'.') {
        const QString extension = zipformat::restoredExtension(header->extension);
        if (!extension.isEmpty())
            destination += u'.' + extension;
    }

    // A valid stream for the stored length is never longer than the buffer bound; anything
    // after the stream is ignored, so there is no need to read it.
    const qint64 readLength =
        std::min(streamLength, zipformat::bufferBound(header->originalSize) + 1024);
    QByteArray data = source.read(readLength);
    if (data.size() != readLength || source.error() != QFileDevice::NoError)
        throw ZipError(ZipError::FileAccess, kDecompressSource,
                       QStringLiteral("Path/File access error: ") + SourceFile);
    source.close();

    // The stream is decoded twice, a chunk at a time: once to check that it restores exactly
    // the stored length (before the free-space question, as the whole-buffer decoding did),
    // and once into the destination. Memory stays at the container plus one chunk, however
    // much the header claims and however much the stream really holds.
    const int result = zipstream::inflateBounded(data, header->originalSize,
                                                 [](const char*, qsizetype) { return true; });
    if (result != Z_OK)
        throw ZipError(result, kDecompressSource, QStringLiteral("Error decompressing byte array"));
    m_compressedSize = 0;
    m_originalSize = 0;

    if (!freeSpaceGuard(destination, header->originalSize))
        return false;
    writeWhole(kDecompressSource, destination, [&](QSaveFile& file) {
        return zipstream::inflateBounded(data, header->originalSize,
                                         [&file](const char* piece, qsizetype size) {
                                             return writeAll(file, piece, size);
                                         }) == Z_OK;
    });
    return true;
}

bool clsZip::querySpaceOf(const QString& path) {
    if (path.isEmpty())
        return false;
    const DriveSpace space = m_spaceQuery(path);
    m_freeBytes = space.freeBytes;
    m_totalBytes = space.totalBytes;
    m_lastRoot = space.root;
    return true;
}

bool clsZip::freeSpaceGuard(const QString& destination, qint64 bytes) {
    const double need = static_cast<double>(bytes) + 1.0;
    for (;;) {
        querySpaceOf(destination);
        if (need <= m_freeBytes)
            return true;
        const QString drive =
            m_lastRoot.isEmpty() ? QFileInfo(destination).absolutePath() : m_lastRoot;
        const QString text = QStringLiteral("Drive ") + drive +
                             QStringLiteral(" does not have enough free space.\r\n") +
                             QString::number(std::floor(need - m_freeBytes), 'f', 0) +
                             QStringLiteral(" additional bytes needed.");
        const int answer = m_notifier.standardBox(
            text, QStringLiteral("vbInformation + vbRetryCancel"), QStringLiteral("Compress File"));
        if (answer != AnswerRetry)
            return false;
    }
}

qint16 clsZip::DriveType(const QString& DriveLetter) const {
    return driveTypeOf(DriveLetter);
}

double clsZip::SpaceTotal(const QString& DrivePath) {
    return querySpaceOf(DrivePath) ? m_totalBytes : -1;
}

double clsZip::SpaceFree(const QString& DrivePath) {
    return querySpaceOf(DrivePath) ? m_freeBytes : -1;
}
