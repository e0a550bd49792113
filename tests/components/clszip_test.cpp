// The compressed-file container: the exact layout, round trips, the level conversion, the
// refusals of foreign and damaged containers, the size limit and the free-space guard.
#include "components/clszip.h"
#include "components/ziperror.h"
#include "components/zipformat.h"

#include "support/recordingnotifier.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <zlib.h>

#include <functional>

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray sampleBytes(int n) {
    QByteArray bytes;
    for (int i = 0; i < n; ++i)
        bytes += static_cast<char>((i * 7 + i / 13) % 251);
    return bytes;
}

DriveSpace plenty(const QString&) {
    return {1e12, 2e12, QStringLiteral("/")};
}

class ZipTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return dir.path() + u'/' + name; }
    QStringList files() const { return QDir(dir.path()).entryList(QDir::Files, QDir::Name); }

    // Runs `call`, expecting a ZipError; returns it.
    ZipError expectError(const std::function<void()>& call) {
        try {
            call();
        } catch (const ZipError& error) {
            return error;
        }
        ADD_FAILURE() << "no ZipError thrown";
        return ZipError(0, {}, {});
    }

    QTemporaryDir dir;
    RecordingNotifier notifier;
    clsZip zip{notifier, plenty};
};

TEST_F(ZipTest, ThousandBytesRoundTripWithExactLayoutAndRestoredExtension) {
    const QByteArray original = sampleBytes(1000);
    writeAll(path("data.txt"), original);

    ASSERT_TRUE(zip.CompressFile(path("data.txt"), path("pack.mlh")));
    const QByteArray container = readAll(path("pack.mlh"));
    EXPECT_EQ(zip.OriginalSize(), 1000);
    EXPECT_EQ(container.size(), 10 + zip.CompressedSize());
    EXPECT_EQ(container.left(3), QByteArray("mlh"));
    EXPECT_EQ(container.mid(3, 4), QByteArray("\xe8\x03\x00\x00", 4)); // little-endian 1000
    EXPECT_EQ(container.mid(7, 3), QByteArray("txt"));

    ASSERT_TRUE(zip.DecompressFile(path("pack.mlh"), path("restored")));
    EXPECT_EQ(readAll(path("restored.txt")), original);
    EXPECT_EQ(zip.CompressedSize(), 0);
    EXPECT_EQ(zip.OriginalSize(), 0);
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ZipTest, StreamAfterTheHeaderIsPlainZlib) {
    const QByteArray original = sampleBytes(5000);
    writeAll(path("a.bin"), original);
    zip.setCompressLevel(9);
    ASSERT_TRUE(zip.CompressFile(path("a.bin"), path("a.mlh")));
    const QByteArray stream = readAll(path("a.mlh")).mid(10);

    QByteArray out(original.size(), '\0');
    uLongf outLength = static_cast<uLongf>(out.size());
    ASSERT_EQ(uncompress(reinterpret_cast<Bytef*>(out.data()), &outLength,
                         reinterpret_cast<const Bytef*>(stream.constData()),
                         static_cast<uLong>(stream.size())),
              Z_OK);
    EXPECT_EQ(out, original);
}

TEST_F(ZipTest, DestinationNamesAndExtensionField) {
    writeAll(path("notes"), "some notes, some notes, some notes");
    ASSERT_TRUE(zip.CompressFile(path("notes"), path("n.mlh")));
    EXPECT_EQ(readAll(path("n.mlh")).mid(7, 3), QByteArray("tes"));

    // A destination whose fourth character from the end is a dot keeps its name.
    ASSERT_TRUE(zip.DecompressFile(path("n.mlh"), path("keep.dat")));
    EXPECT_TRUE(QFile::exists(path("keep.dat")));
    // Shorter than four characters: the extension is always appended.
    const QString previous = QDir::currentPath();
    QDir::setCurrent(dir.path());
    const bool restored = zip.DecompressFile(path("n.mlh"), QStringLiteral("out"));
    QDir::setCurrent(previous);
    ASSERT_TRUE(restored);
    EXPECT_EQ(readAll(path("out.tes")), QByteArray("some notes, some notes, some notes"));

    EXPECT_EQ(zipformat::extensionField(QStringLiteral("ab")), QByteArray("ab "));
    EXPECT_EQ(zipformat::restoredExtension("ab "), QStringLiteral("ab"));
    EXPECT_EQ(zipformat::restoredExtension(QByteArray("/b\0", 3)), QStringLiteral("_b_"));
    EXPECT_EQ(zipformat::restoredExtension("   "), QString());
}

TEST_F(ZipTest, EmptySourceRoundTripsToAnEmptyFile) {
    writeAll(path("empty.txt"), {});
    ASSERT_TRUE(zip.CompressFile(path("empty.txt"), path("e.mlh")));
    EXPECT_EQ(zip.OriginalSize(), 0);
    EXPECT_EQ(readAll(path("e.mlh")).size(), 10 + zip.CompressedSize());
    ASSERT_TRUE(zip.DecompressFile(path("e.mlh"), path("back")));
    EXPECT_TRUE(QFile::exists(path("back.txt")));
    EXPECT_EQ(QFile(path("back.txt")).size(), 0);
}

TEST(ZipLevel, ConversionsRoundHalfToEvenAndClamp) {
    RecordingNotifier notifier;
    clsZip zip(notifier);
    EXPECT_EQ(zip.CompressLevel(), QVariant::fromValue<qint16>(6));
    const struct {
        QVariant written;
        int expected;
    } rows[] = {{0, 1},
                {12, 9},
                {QStringLiteral("7"), 7},
                {6.5, 6},
                {7.5, 8},
                {-40, 1},
                {QStringLiteral(" 3.4 kg"), 3},
                {QStringLiteral("abc"), 1},
                {8.51, 9},
                {QStringLiteral("2e0"), 2}};
    for (const auto& row : rows) {
        zip.setCompressLevel(row.written);
        EXPECT_EQ(zip.CompressLevel().toInt(), row.expected)
            << row.written.toString().toStdString();
        EXPECT_EQ(zip.CompressLevel().typeId(), QMetaType::Short);
    }
}

TEST(ZipFormat, BufferBoundRoundsHalfToEven) {
    EXPECT_EQ(zipformat::bufferBound(0), 12);
    EXPECT_EQ(zipformat::bufferBound(50), 62);   // 62.5
    EXPECT_EQ(zipformat::bufferBound(150), 164); // 163.5
    EXPECT_EQ(zipformat::bufferBound(1000), 1022);
}

TEST_F(ZipTest, ForeignFileIsRefusedWithTheNoticeAndNothingAppears) {
    writeAll(path("plain.txt"), "mlx not a container at all");
    EXPECT_FALSE(zip.DecompressFile(path("plain.txt"), path("out")));
    ASSERT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(notifier.messages().at(0).text,
              QStringLiteral("This file is not recognized as a compressed file"));
    EXPECT_TRUE(notifier.messages().at(0).standard);
    EXPECT_EQ(files(), QStringList{QStringLiteral("plain.txt")});
}

TEST_F(ZipTest, UntrustedHeadersAreRefusedBeforeAllocating) {
    const auto container = [](qint32 length, const QByteArray& stream) {
        QByteArray bytes("mlh");
        char raw[4];
        qToLittleEndian<qint32>(length, raw);
        return bytes + QByteArray(raw, 4) + "txt" + stream;
    };
    const QByteArray tinyStream(20, 'x');
    const struct {
        const char* what;
        QByteArray bytes;
    } rows[] = {
        {"header cut short", QByteArray("mlh\x05\x00", 5)},
        {"negative length", container(-1, tinyStream)},
        {"more than 20 bytes can expand to", container(20 * 1032 + 5000, tinyStream)},
        {"largest 32-bit length", container(0x7fffffff, tinyStream)},
    };
    for (const auto& row : rows) {
        writeAll(path("bad.mlh"), row.bytes);
        const ZipError error = expectError([&] { zip.DecompressFile(path("bad.mlh"), path("o")); });
        EXPECT_EQ(error.number(), ZipError::DamagedContainer) << row.what;
        EXPECT_EQ(error.source(), QStringLiteral("clsZip.DecompressFile()"));
        EXPECT_EQ(files(), QStringList{QStringLiteral("bad.mlh")}) << row.what;
    }
}

TEST_F(ZipTest, TruncatedOrCorruptStreamThrowsAndKeepsTheOldDestination) {
    writeAll(path("d.txt"), sampleBytes(3000));
    ASSERT_TRUE(zip.CompressFile(path("d.txt"), path("d.mlh")));
    const QByteArray good = readAll(path("d.mlh"));
    writeAll(path("old.txt"), "keep me");

    QByteArray corrupt = good;
    corrupt[20] = static_cast<char>(corrupt[20] ^ 0x55);
    QByteArray wrongLength = good;
    wrongLength[3] = static_cast<char>(wrongLength[3] - 1); // one byte less than the stream holds
    for (const QByteArray& bytes : {good.left(good.size() - 30), corrupt, wrongLength}) {
        writeAll(path("d.mlh"), bytes);
        const ZipError error = expectError([&] { zip.DecompressFile(path("d.mlh"), path("old")); });
        EXPECT_LT(error.number(), 0);
        EXPECT_EQ(error.source(), QStringLiteral("clsZip.DecompressFile()"));
        EXPECT_EQ(error.description(), QStringLiteral("Error decompressing byte array"));
        EXPECT_EQ(readAll(path("old.txt")), QByteArray("keep me"));
    }
}

TEST_F(ZipTest, SourcesBeyondTheLengthFieldAreRefusedUnread) {
    QFile sparse(path("huge.bin"));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly));
    ASSERT_TRUE(sparse.resize(qint64(1) << 31)); // 2 GiB, sparse: nothing is really written
    sparse.close();
    ZipError error = expectError([&] { zip.CompressFile(path("huge.bin"), path("h.mlh")); });
    EXPECT_EQ(error.number(), ZipError::FileTooLarge);
    EXPECT_FALSE(QFile::exists(path("h.mlh")));

    // The same refusal below the format's limit when a lower limit is set.
    writeAll(path("small.bin"), sampleBytes(101));
    zip.setSizeLimit(100);
    error = expectError([&] { zip.CompressFile(path("small.bin"), path("s.mlh")); });
    EXPECT_EQ(error.number(), ZipError::FileTooLarge);
    EXPECT_FALSE(QFile::exists(path("s.mlh")));
}

TEST_F(ZipTest, MissingSourceIsFileNotFound) {
    const ZipError error = expectError([&] { zip.CompressFile(path("none"), path("x.mlh")); });
    EXPECT_EQ(error.number(), ZipError::FileNotFound);
    EXPECT_EQ(error.source(), QStringLiteral("clsZip.CompressFile()"));
}

TEST_F(ZipTest, FreeSpaceGuardRetriesAndCancels) {
    int queries = 0;
    clsZip tight(notifier, [&queries](const QString&) {
        ++queries;
        return DriveSpace{queries == 1 ? 5.0 : 1e9, 1e9, QStringLiteral("/data/")};
    });
    writeAll(path("f.txt"), sampleBytes(1000));
    notifier.queueAnswer(AnswerRetry);
    ASSERT_TRUE(tight.CompressFile(path("f.txt"), path("f.mlh")));
    EXPECT_EQ(queries, 2);
    ASSERT_EQ(notifier.messages().size(), 1);
    const RecordedMessage& asked = notifier.messages().at(0);
    EXPECT_EQ(asked.text, QStringLiteral("Drive /data/ does not have enough free space.\r\n%1 "
                                         "additional bytes needed.")
                              .arg(tight.CompressedSize() + 1 - 5));
    EXPECT_EQ(asked.title, QStringLiteral("Compress File"));
    EXPECT_TRUE(asked.style.contains(QStringLiteral("vbRetryCancel")));

    // Cancel: the old destination is gone and nothing new is written.
    queries = 0;
    notifier.queueAnswer(AnswerCancel);
    EXPECT_FALSE(tight.CompressFile(path("f.txt"), path("f.mlh")));
    EXPECT_FALSE(QFile::exists(path("f.mlh")));
}

TEST(ZipDrives, SpaceAndTypeOfTheFileSystemHoldingAPath) {
    RecordingNotifier notifier;
    clsZip zip(notifier);
    EXPECT_EQ(zip.SpaceFree(QString()), -1);
    EXPECT_EQ(zip.SpaceTotal(QString()), -1);
    EXPECT_EQ(zip.DriveType(QString()), DriveUnknown);

    QTemporaryDir dir;
    const QString notYetThere = dir.path() + QStringLiteral("/a/b/c.txt");
    const double total = zip.SpaceTotal(notYetThere);
    const double free = zip.SpaceFree(notYetThere);
    EXPECT_GT(total, 0);
    EXPECT_GE(free, 0);
    EXPECT_LE(free, total);
    EXPECT_EQ(zip.DriveType(QStringLiteral("/proc/self")), DriveUnknown);

    EXPECT_EQ(driveTypeForFileSystem(0x01021994, false), DriveRam);
    EXPECT_EQ(driveTypeForFileSystem(0x6969, false), DriveRemote);
    EXPECT_EQ(driveTypeForFileSystem(0x9660, true), DriveOptical);
    EXPECT_EQ(driveTypeForFileSystem(0xef53, false), DriveFixed);
    EXPECT_EQ(driveTypeForFileSystem(0xef53, true), DriveRemovable);
    EXPECT_EQ(driveTypeForFileSystem(0x9fa0, false), DriveUnknown);
}

} // namespace
