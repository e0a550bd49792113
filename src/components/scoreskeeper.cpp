// The scores tally and its file; see scoreskeeper.h.
#include "components/scoreskeeper.h"

#include "components/scorescrambler.h"
#include "core/appfolder.h"
#include "core/atomicwrite.h"
#include "core/notifier.h"
#include "core/regularfile.h"
#include "core/textdecoding.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

// A valid line is some sixty characters; more than this is not read.
constexpr qint64 kMaxLineBytes = 4096;

size_t index(int row) {
    return static_cast<size_t>(row - 1);
}

} // namespace

ScoresKeeper::ScoresKeeper(QString scoreFilePath, Notifier& notifier, DateSource today)
    : m_path(std::move(scoreFilePath))
    , m_notifier(notifier)
    , m_today(std::move(today)) {}

QString ScoresKeeper::programBaseName() {
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
}

QString ScoresKeeper::defaultScoreFilePath() {
    return AppFolder() + programBaseName() + QStringLiteral(".sco");
}

void ScoresKeeper::start() {
    QFile file(m_path);
    const qint64 length = QFileInfo(m_path).isFile() ? QFileInfo(m_path).size() : 0;
    if (length == 0) {
        QString record = freshScoresRecord(m_today(), 6);
        writeRecord(record);
        ShowScores(record);
        return;
    }
    // Opened only as a regular file and without waiting, should the name have changed into a
    // FIFO since the look above.
    QByteArray bytes;
    if (openRegularFile(file, m_path))
        bytes = file.read(kMaxLineBytes);
    const QStringList lines = splitTextLines(decodeText(bytes));
    QString record = UnscrambleScores(lines.isEmpty() ? QString() : lines.first());
    ShowScores(record);
}

void ScoresKeeper::countGame(GameResult result) {
    const int row = static_cast<int>(result);
    for (ScoreCaptions* column : {&m_session, &m_totals}) {
        for (const int counted : {1, row})
            (*column)[index(counted)] = countedCaption((*column)[index(counted)]);
    }
    if (!SaveScores())
        m_notifier.standardBox(QStringLiteral("The scores could not be saved to ") + m_path,
                               QStringLiteral("vbExclamation + vbOKOnly"),
                               QCoreApplication::applicationName());
}

bool ScoresKeeper::SaveScores() {
    return writeRecord(formatScoresRecord(m_today(), m_totals));
}

void ScoresKeeper::ShowScores(QString& record) {
    std::optional<ScoreCaptions> totals = parseScoresRecord(record);
    if (!totals) {
        record = freshScoresRecord(m_today(), 5);
        totals = parseScoresRecord(record);
    }
    m_session.fill(QStringLiteral("0"));
    m_totals = *totals;
}

bool ScoresKeeper::clear() {
    const int answer = m_notifier.standardBox(QStringLiteral("Clear ALL scores"),
                                              QStringLiteral("vbQuestion + vbYesNo"),
                                              QCoreApplication::applicationName());
    if (answer != AnswerYes)
        return false;
    QString record = freshScoresRecord(m_today(), 5);
    writeRecord(record);
    ShowScores(record);
    return true;
}

QString ScoresKeeper::thisSession(int row) const {
    return row >= 1 && row <= 4 ? m_session[index(row)] : QString();
}

QString ScoresKeeper::allSessions(int row) const {
    return row >= 1 && row <= 4 ? m_totals[index(row)] : QString();
}

bool ScoresKeeper::writeRecord(const QString& record) const {
    const QByteArray line = ScrambleScores(record).toLatin1() + "\r\n";
    return writeFileAtomically(m_path, line);
}
