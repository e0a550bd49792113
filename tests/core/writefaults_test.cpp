// Every writer of the program when the disk refuses the write (tests/support/writefault.h):
// each reports the failure its own way, keeps every earlier file byte for byte, adds none, and
// the program goes on. Without a fault the same write changes its file, so each row reaches it.
#include "appearance/colourscheme.h"
#include "components/clszip.h"
#include "components/scorescrambler.h"
#include "components/scoreskeeper.h"
#include "components/ziperror.h"
#include "core/appfolder.h"
#include "core/clssimplearray.h"
#include "core/configfile.h"

#include "support/recordingnotifier.h"
#include "support/writefault.h"

#include <QFile>

#include <gtest/gtest.h>

#include <tuple>

namespace {

using Prepare = std::function<void(const QString& folder)>;
using Write = std::function<QString(const QString& folder, const QString& target, Notifier&)>;

struct Writer {
    const char* name;
    Prepare prepare;  // the earlier files
    Write write;      // returns what the operation returned, as text
    qint64 sizeLimit; // FileSizeLimit: the largest size a file may reach
    QString result;   // what the refused write returns
    QString message;  // the end of the one message shown ("<target>": the folder); "": none
};

Prepare earlierFile(const char* name, const QByteArray& bytes) {
    return [=](const QString& folder) { writeFaultFile(folder + name, bytes); };
}

// A source that does not compress, so its container passes the size limit; an old container
// and an old restored file; a container to restore, which names the extension "bin".
void prepareZip(const QString& folder) {
    QByteArray noise(3000, '\0');
    quint32 x = 777;
    for (char& c : noise)
        c = static_cast<char>((x = x * 1103515245 + 12345) >> 24);
    writeFaultFile(folder + "data.txt", noise);
    writeFaultFile(folder + "pack.mlh", "an older container");
    writeFaultFile(folder + "old.bin", "the old restored file");
    writeFaultFile(folder + "new.bin", QByteArray(3000, 'n'));
    RecordingNotifier notifier;
    clsZip(notifier).CompressFile(folder + "new.bin", folder + "new.mlh");
    QFile::remove(folder + "new.bin");
}

Write zipWrite(bool compress) {
    return [compress](const QString& folder, const QString& target, Notifier& notifier) {
        clsZip zip(notifier, [](const QString&) { return DriveSpace{1e12, 2e12, "/"}; });
        try {
            return QString::number(compress
                                       ? zip.CompressFile(folder + "data.txt", target + "pack.mlh")
                                       : zip.DecompressFile(folder + "new.mlh", target + "old"));
        } catch (const ZipError& error) {
            return QStringLiteral("%1 %2").arg(error.number()).arg(error.source());
        }
    };
}

// Append writes the collection of the target folder itself; Replace and Delete work on the
// earlier collection and fail at the scratch copy in the target folder.
Write schemeWrite(SchemeEdit (ColourScheme::*operation)(const QString&), bool append) {
    return [=](const QString& folder, const QString& target, Notifier& notifier) {
        Settings settings = Settings::forFolder(target);
        if (!append)
            settings.SchemeCollectionPath = folder + "all.col";
        ColourScheme scheme(settings);
        scheme.setNotifier(&notifier);
        scheme.DeriveScheme(packRgb(50, 60, 70), 100);
        const QString name = append ? QStringLiteral("new") : QStringLiteral("sea");
        return QString::number((scheme.*operation)(name) == SchemeEdit::Done);
    };
}

std::vector<Writer> makeWriters() {
    // 4,090 bytes ending in a line break: its 4 KiB page has room for only six more bytes.
    QByteArray log;
    while (log.size() < 4090)
        log += "#2026-01-01 00:00:00#,\"0\",\"earlier\"\r\n";
    log = log.left(4088) + "\r\n";
    QByteArray collection;
    for (const char* header : {"xp.col", "sea.col"})
        collection += QByteArray(header) + "\r\n" + QByteArray(" 1; 2; 3\r\n").repeated(13);
    const QString zipResult = QStringLiteral("%1 clsZip.%2File()").arg(ZipError::FileAccess);
    return {
        {"ErrorLog", earlierFile("ErrorLog.txt", log),
         [](const QString& folder, const QString& target, Notifier& notifier) {
             qputenv("PENTALINK_HOME", target.toLocal8Bit());
             qputenv("PENTALINK_DATA_DIR", (folder + "none/").toLocal8Bit()); // no seeding
             resetAppFolderForTests();
             clsSimpleArray list(&notifier);
             list.AddItem(QStringLiteral("word"));
             list.RemoveItem(5);
             return list.List(0);
         },
         log.size() + 8, "word", "Function: RemoveItem"},
        {"Configuration",
         earlierFile("pentalink.cfg",
                     "01-31-2010 17:05:09\r\nxp.col\r\nENGLISH1.TXT\r\nArial\r\n 18 \r\n"),
         [](const QString&, const QString& target, Notifier& notifier) {
             Settings settings = Settings::forFolder(target);
             settings.ActiveSchemeFile = QStringLiteral("changed.col");
             settings.BoardFontName = QStringLiteral("A much longer font name than before");
             return QString::number(ConfigFile(settings, notifier).SavecfgFile());
         },
         40, "0",
         "Configuration file:\n<target>pentalink.cfg\ncould not be accessed, options not saved"},
        // The counted game is kept for the next save.
        {"Scores",
         earlierFile("game.sco",
                     ScrambleScores(QStringLiteral("01Jan2020 10 5 3 2 ")).toLatin1() + "\r\n"),
         [](const QString&, const QString& target, Notifier& notifier) {
             ScoresKeeper keeper(target + "game.sco", notifier, [] { return QDate(2025, 3, 7); });
             keeper.start();
             const int before = keeper.allSessions(1).toInt();
             keeper.countGame(GameResult::Won);
             return QString::number(keeper.allSessions(1).toInt() - before);
         },
         20, "1", "The scores could not be saved to <target>game.sco"},
        {"ZipCompress", prepareZip, zipWrite(true), 100, zipResult.arg("Compress"), ""},
        {"ZipDecompress", prepareZip, zipWrite(false), 100, zipResult.arg("Decompress"), ""},
        {"SchemeAppend", earlierFile("all.col", collection),
         schemeWrite(&ColourScheme::AppendScheme, true), 100, "0", ""},
        {"SchemeReplace", earlierFile("all.col", collection),
         schemeWrite(&ColourScheme::ReplaceScheme, false), 100, "0", ""},
        {"SchemeDelete", earlierFile("all.col", collection),
         schemeWrite(&ColourScheme::DeleteScheme, false), 100, "0", ""},
    };
}

const std::vector<Writer>& writers() {
    static const std::vector<Writer> all = makeWriters();
    return all;
}

// (writer, fault): fault -1 is the same write without a fault.
class WriteFaults : public testing::TestWithParam<std::tuple<size_t, int>> {};

TEST_P(WriteFaults, AreReportedAndKeepEveryEarlierFile) {
    const Writer& writer = writers()[std::get<0>(GetParam())];
    const int fault = std::get<1>(GetParam());
    const WriteFaultOutcome outcome =
        runWithWriteFault(fault < 0 ? WriteFault::FileSizeLimit : kWriteFaults[fault],
                          {writer.prepare, writer.write, fault < 0 ? 1 << 30 : writer.sizeLimit});
    if (outcome.skipped)
        GTEST_SKIP() << outcome.skipReason.toStdString();
    EXPECT_TRUE(outcome.finished) << outcome.result.toStdString();
    if (fault < 0) {
        EXPECT_NE(outcome.changed, QStringList()) << "the write did not reach its file";
        return;
    }
    EXPECT_EQ(outcome.result, writer.result);
    if (writer.message.isEmpty()) {
        EXPECT_EQ(outcome.messages, QStringList());
    } else {
        ASSERT_EQ(outcome.messages.size(), 1) << outcome.messages.join(u'|').toStdString();
        EXPECT_TRUE(outcome.messages[0].endsWith(
            QString(writer.message).replace(QStringLiteral("<target>"), outcome.target)))
            << outcome.messages[0].toStdString();
    }
    EXPECT_EQ(outcome.changed, QStringList());
    EXPECT_EQ(outcome.added, QStringList());
}

INSTANTIATE_TEST_SUITE_P(EveryWriter, WriteFaults,
                         testing::Combine(testing::Range<size_t>(0, writers().size()),
                                          testing::Range(-1, 3)),
                         [](const auto& info) {
                             const int fault = std::get<1>(info.param);
                             return std::string(writers()[std::get<0>(info.param)].name) + "_" +
                                    (fault < 0 ? "NoFault" : writeFaultName(kWriteFaults[fault]));
                         });

} // namespace
