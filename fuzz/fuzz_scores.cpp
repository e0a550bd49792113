// The scores file: any first line unscrambles without harm; scrambling then unscrambling any
// 8-bit text gives it back; a record that parses formats and parses to the same captions; and
// whatever the file held, a keeper that counts a game saves totals the next start reads back.
#include "fuzzsupport.h"

#include "components/scorescrambler.h"
#include "components/scoreskeeper.h"
#include "components/scoresrecord.h"

namespace {

const QDate kToday(2026, 3, 7);

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = QString::fromLatin1(bytes);
    check(UnscrambleScores(ScrambleScores(text)) == text, "scrambling round-trips");
    const QString record = UnscrambleScores(text);
    if (const std::optional<ScoreCaptions> totals = parseScoresRecord(record)) {
        check(parseScoresRecord(formatScoresRecord(kToday, *totals)) == totals,
              "a record formats and parses back");
    }

    const QString path = scratchFolder() + QStringLiteral("fuzz.sco");
    writeFile(path, bytes);
    FuzzNotifier notifier;
    ScoresKeeper keeper(path, notifier, [] { return kToday; });
    keeper.start();
    const int result = size > 0 ? 2 + data[0] % 3 : 2;
    keeper.countGame(static_cast<GameResult>(result));
    check(notifier.shown == 0, "the save succeeds");
    check(keeper.thisSession(1) == QStringLiteral("1") &&
              keeper.thisSession(result) == QStringLiteral("1"),
          "the session counts");
    ScoresKeeper next(path, notifier, [] { return kToday; });
    next.start();
    for (int row = 1; row <= 4; ++row)
        check(next.allSessions(row) == keeper.allSessions(row), "saved totals read back");
    return 0;
}
