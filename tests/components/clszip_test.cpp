// The compressed-file container: layout, round trips, refusals, limits, free space, memory.
#include "components/clszip.h"
#include "components/drivespace.h"
#include "components/ziperror.h"
#include "components/zipformat.h"

#include "support/peakgrowth.h"
#include "support/recordingnotifier.h"
#include "support/testfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QtEndian>

#include <gtest/gtest.h>

#include <zlib.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray sampleBytes(int n) {
    QByteArray bytes;
    for (int i = 0; i < n; ++i)
        bytes += static_cast<char>((i * 7 + i / 13) % 251);
    return bytes;
}

// A container holding `original` (zlib at level 6) whose header claims `storedLength`.
QByteArray containerFor(const QByteArray& original, qint32 storedLength,
                        const QString& name = QStringLiteral("x.bin")) {
    uLongf length = compressBound(static_cast<uLong>(original.size()));
    QByteArray stream(static_cast<qsizetype>(length), '\0');
    compress2(reinterpret_cast<Bytef*>(stream.data()), &length,
              reinterpret_cast<const Bytef*>(original.constData()),
              static_cast<uLong>(original.size()), 6);
    stream.truncate(static_cast<qsizetype>(length));
    return zipformat::buildHeader(storedLength, name) + stream;
}

class ZipTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return folder.file(name); }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }
    QByteArray read(const QString& name) const { return folder.read(name); }
    void write(const QString& name, const QByteArray& bytes) const { folder.write(name, bytes); }
    static ZipError thrown(const std::function<void()>& call) {
        try {
            call();
        } catch (const ZipError& error) {
            return error;
        }
        ADD_FAILURE() << "no ZipError thrown";
        return ZipError(0, {}, {});
    }

    TestFolder folder;
    RecordingNotifier notifier;
    clsZip zip{notifier, [](const QString&) { return DriveSpace{1e12, 2e12, "/"}; }};
};

TEST_F(ZipTest, ThousandBytesRoundTripThroughTheExactLayout) {
    const QByteArray original = sampleBytes(1000);
    write("data.txt", original);
    ASSERT_TRUE(zip.CompressFile(path("data.txt"), path("pack.mlh")));
    const QByteArray container = read("pack.mlh");
    EXPECT_EQ(zip.OriginalSize(), 1000);
    EXPECT_EQ(container.size(), 10 + zip.CompressedSize());
    EXPECT_EQ(container.left(10), QByteArray("mlh\xe8\x03\x00\x00txt", 10)); // 1000, LE
    EXPECT_EQ(container, containerFor(original, 1000, "data.txt")); // then a plain zlib stream
    ASSERT_TRUE(zip.DecompressFile(path("pack.mlh"), path("restored")));
    EXPECT_EQ(read("restored.txt"), original);
    EXPECT_EQ(zip.CompressedSize(), 0);
    EXPECT_EQ(zip.OriginalSize(), 0);
    EXPECT_TRUE(notifier.messages().isEmpty());
}

TEST_F(ZipTest, DestinationNamesExtensionFieldAndEmptySource) {
    write("notes", "some notes");
    ASSERT_TRUE(zip.CompressFile(path("notes"), path("n.mlh")));
    EXPECT_EQ(read("n.mlh").mid(7, 3), QByteArray("tes"));
    ASSERT_TRUE(zip.DecompressFile(path("n.mlh"), path("keep.dat"))); // has a dot 4th from end
    EXPECT_EQ(read("keep.dat"), QByteArray("some notes"));
    const QString previous = QDir::currentPath();
    QDir::setCurrent(folder.path());
    const bool restored = zip.DecompressFile(path("n.mlh"), QStringLiteral("out")); // too short
    QDir::setCurrent(previous);
    ASSERT_TRUE(restored);
    EXPECT_EQ(read("out.tes"), QByteArray("some notes"));

    write("empty.txt", {});
    ASSERT_TRUE(zip.CompressFile(path("empty.txt"), path("e.mlh")));
    ASSERT_TRUE(zip.DecompressFile(path("e.mlh"), path("back")));
    EXPECT_TRUE(QFile::exists(path("back.txt")));
    EXPECT_EQ(QFile(path("back.txt")).size(), 0);
    EXPECT_EQ(zipformat::restoredExtension(QByteArray("/b\0", 3)), QStringLiteral("_b_"));
}

TEST_F(ZipTest, LevelConversionsRoundHalfToEvenAndClamp) {
    EXPECT_EQ(zip.CompressLevel(), QVariant::fromValue<qint16>(6));
    const std::pair<QVariant, int> rows[] = {
        {12, 9}, {QStringLiteral("7"), 7},  {6.5, 6}, {7.5, 8}, {QStringLiteral(" 3.4 kg"), 3},
        {0, 1},  {QStringLiteral("abc"), 1}};
    for (const auto& [written, expected] : rows) {
        zip.setCompressLevel(written);
        EXPECT_EQ(zip.CompressLevel().toInt(), expected) << written.toString().toStdString();
        EXPECT_EQ(zip.CompressLevel().typeId(), QMetaType::Short);
    }
    EXPECT_EQ(zipformat::bufferBound(50), 62);   // 62.5
    EXPECT_EQ(zipformat::bufferBound(150), 164); // 163.5
}

// The device's own removable flag, else (a partition's) its disk's, under a stand-in device list.
TEST_F(ZipTest, RemovableDrivesByTheDevicesOwnFlagOrElseItsDisks) {
    struct stat info {};
    ASSERT_EQ(::stat(QFile::encodeName(folder.path()).constData(), &info), 0);
    const QString own = QStringLiteral("%1:%2/").arg(major(info.st_dev)).arg(minor(info.st_dev));
    ASSERT_TRUE(QDir(folder.path()).mkdir(own));
    for (const auto& [name, flag, removable] : {std::tuple(QString("none"), "1", false),
                                                {"removable", "1\n", true},
                                                {own + "removable", "0", false}}) {
        write(name, flag);
        EXPECT_EQ(isRemovableDevice(folder.path(), folder.path()), removable) << name.toStdString();
    }
}

TEST_F(ZipTest, ForeignFileIsRefusedWithTheNoticeAndNothingAppears) {
    write("plain.txt", "mlx not a container at all");
    EXPECT_FALSE(zip.DecompressFile(path("plain.txt"), path("out")));
    ASSERT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(notifier.messages().at(0).text,
              QStringLiteral("This file is not recognized as a compressed file"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("plain.txt")});
}

TEST_F(ZipTest, DamagedContainersThrowAndKeepTheOldDestination) {
    const auto claiming = [](qint32 length) {
        char raw[4];
        qToLittleEndian<qint32>(length, raw);
        return QByteArray("mlh") + QByteArray(raw, 4) + "txt" + QByteArray(20, 'x');
    };
    const QByteArray good = containerFor(sampleBytes(3000), 3000);
    QByteArray corrupt = good;
    corrupt[20] = static_cast<char>(corrupt[20] ^ 0x55);
    const qint64 noLimit = zipformat::kMaxOriginalSize;
    const struct {
        QByteArray bytes;
        int number;
        qint64 limit;
    } rows[] = {
        {QByteArray("mlh\x05\x00", 5), ZipError::DamagedContainer, noLimit}, // a short header
        {claiming(-1), ZipError::DamagedContainer, noLimit},
        {claiming(20 * 1032 + 5000), ZipError::DamagedContainer, noLimit}, // 20 bytes cannot
        {claiming(0x7fffffff), ZipError::DamagedContainer, noLimit},
        {containerFor(sampleBytes(100), 100), ZipError::DamagedContainer, 99},
        {good.left(good.size() - 30), Z_DATA_ERROR, noLimit},
        {corrupt, Z_DATA_ERROR, noLimit},
        {containerFor(sampleBytes(3000), 2999), Z_DATA_ERROR, noLimit}, // one byte short
    };
    write("old.bin", "keep me");
    for (const auto& [bytes, number, limit] : rows) {
        SCOPED_TRACE(bytes.left(16).toHex().toStdString());
        zip.setSizeLimit(limit);
        write("bad.mlh", bytes);
        const ZipError error = thrown([&] { zip.DecompressFile(path("bad.mlh"), path("old")); });
        EXPECT_EQ(error.number(), number);
        if (number < 0) { // zlib's own numbers
            EXPECT_EQ(error.description(), QStringLiteral("Error decompressing byte array"));
        }
        EXPECT_EQ(error.source(), QStringLiteral("clsZip.DecompressFile()"));
        EXPECT_EQ(read("old.bin"), QByteArray("keep me"));
        EXPECT_EQ(files(), (QStringList{"bad.mlh", "old.bin"}));
    }
}

TEST_F(ZipTest, SourcesBeyondTheLimitOrMissingAreRefused) {
    QFile sparse(path("huge.bin"));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly));
    ASSERT_TRUE(sparse.resize(qint64(1) << 31)); // 2 GiB, sparse: nothing is really written
    sparse.close();
    EXPECT_EQ(thrown([&] { zip.CompressFile(path("huge.bin"), path("h.mlh")); }).number(),
              ZipError::FileTooLarge);
    // Exactly the limit goes both ways (one byte over it: DamagedContainersThrow...).
    zip.setSizeLimit(100);
    write("small.bin", sampleBytes(101));
    EXPECT_EQ(thrown([&] { zip.CompressFile(path("small.bin"), path("s.mlh")); }).number(),
              ZipError::FileTooLarge);
    write("edge.bin", sampleBytes(100));
    ASSERT_TRUE(zip.CompressFile(path("edge.bin"), path("e.mlh")));
    ASSERT_TRUE(zip.DecompressFile(path("e.mlh"), path("e.out")));
    EXPECT_EQ(read("e.out"), sampleBytes(100));
    const ZipError missing = thrown([&] { zip.CompressFile(path("none"), path("x.mlh")); });
    EXPECT_EQ(missing.number(), ZipError::FileNotFound);
    EXPECT_EQ(missing.source(), QStringLiteral("clsZip.CompressFile()"));
    EXPECT_EQ(files().size(), 5);
}

TEST(ZipFormat, PlausibleSizesStopAtTheLimitAndTheLargestExpansion) {
    using zipformat::kMaxExpansion;
    const struct {
        qint64 original, stream, limit;
        bool plausible;
    } rows[] = {
        {0, 0, 0, true},
        {-1, 10, 100, false},
        {100, 10, 100, true},
        {101, 10, 1000, true},
        {101, 10, 100, false},
        {10 * kMaxExpansion + 1024, 10, 1 << 30, true},
        {10 * kMaxExpansion + 1025, 10, 1 << 30, false},
        {0, -1, 100, false},
    };
    for (const auto& r : rows)
        EXPECT_EQ(zipformat::plausibleOriginalSize(r.original, r.stream, r.limit), r.plausible)
            << r.original << " from " << r.stream << " limit " << r.limit;
}

TEST_F(ZipTest, FreeSpaceGuardRetriesAndCancels) {
    int queries = 0;
    clsZip tight(notifier, [&queries](const QString&) {
        return DriveSpace{++queries == 1 ? 5.0 : 1e9, 1e9, QStringLiteral("/data/")};
    });
    write("f.txt", sampleBytes(1000));
    notifier.queueAnswer(AnswerRetry);
    ASSERT_TRUE(tight.CompressFile(path("f.txt"), path("f.mlh")));
    EXPECT_EQ(queries, 2);
    ASSERT_EQ(notifier.messages().size(), 1);
    EXPECT_EQ(notifier.messages().at(0).text,
              QStringLiteral("Drive /data/ does not have enough free space.\r\n%1 additional "
                             "bytes needed.")
                  .arg(tight.CompressedSize() + 1 - 5));
    EXPECT_EQ(notifier.messages().at(0).title, QStringLiteral("Compress File"));

    // Cancelling keeps an existing destination as it was, in both directions.
    const QByteArray container = read("f.mlh");
    write("f.txt", sampleBytes(2000));
    write("old.txt", "the old restored file");
    for (const bool compress : {true, false}) {
        queries = 0;
        notifier.queueAnswer(AnswerCancel);
        EXPECT_FALSE(compress ? tight.CompressFile(path("f.txt"), path("f.mlh"))
                              : tight.DecompressFile(path("f.mlh"), path("old")));
        EXPECT_EQ(read("f.mlh"), container);
        EXPECT_EQ(read("old.txt"), QByteArray("the old restored file"));
    }
    EXPECT_EQ(files(), (QStringList{"f.mlh", "f.txt", "old.txt"}));
}

TEST_F(ZipTest, MemoryFollowsTheStreamNotTheStoredLength) {
    constexpr qint64 kMiB = 1024 * 1024;
    // 100 KiB claiming 100 MiB, and 72 MiB of zeros: each needs at most its size plus 64 MiB,
    // measured in a forked child so nothing earlier counts.
    QByteArray noise(100 * 1024, '\0');
    QRandomGenerator(5).fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
    write("claims.mlh", containerFor(noise, 100 * kMiB));
    write("holds.mlh", containerFor(QByteArray(72 * kMiB, '\0'), 72 * kMiB));
    for (const auto& [name, outcome] : {std::pair{"claims.mlh", Z_DATA_ERROR}, {"holds.mlh", 1}}) {
        const pid_t child = fork();
        if (child == 0) {
            const qint64 before = peakmemory::statusBytes("VmRSS:");
            int result = 0;
            try {
                result = int(zip.DecompressFile(path(name), path("out")));
            } catch (const ZipError& e) {
                result = e.number();
            }
            const qint64 growth = peakmemory::statusBytes("VmHWM:") - before;
            _exit(result != outcome                                              ? 2
                  : before < 0 || growth >= folder.read(name).size() + 64 * kMiB ? 3
                                                                                 : 0);
        }
        int status = -1;
        ASSERT_GT(child, 0);
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
            << name << " exit " << WEXITSTATUS(status) << " (2: wrong result, 3: too much memory)";
    }
    EXPECT_EQ(QFileInfo(path("out.bin")).size(), 72 * kMiB);
}

} // namespace
