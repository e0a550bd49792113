// The print command's rules; see printcommand.h.
#include "board/printcommand.h"

#include "core/notifier.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Why `folder` cannot be created: the nearest part of the path that exists and is in the way.
QString folderProblem(const QString& folder) {
    QFileInfo part(folder);
    while (!part.exists() && !part.isRoot() && part.absoluteFilePath() != part.absolutePath())
        part.setFile(part.absolutePath());
    if (part.exists() && !part.isDir())
        return QDir::toNativeSeparators(part.absoluteFilePath()) +
               QStringLiteral(" is a file, not a folder.");
    if (part.exists() && !part.isWritable())
        return QDir::toNativeSeparators(part.absoluteFilePath()) +
               QStringLiteral(" is not writable.");
    return QStringLiteral("The system refused to create it.");
}

} // namespace

QString newPdfFile(const QString& documentsFolder, const QString& appFolder, const QDateTime& when,
                   QString& error) {
    const QString folder = documentsFolder.isEmpty() ? appFolder : documentsFolder;
    QDir dir(folder);
    if (!dir.mkpath(QStringLiteral("."))) {
        error = QStringLiteral("The folder ") + QDir::toNativeSeparators(dir.absolutePath()) +
                QStringLiteral(" cannot be created: ") + folderProblem(dir.absolutePath());
        return {};
    }
    const QString stem =
        QStringLiteral("Pentalink ") + when.toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    QString path = dir.absoluteFilePath(stem + QStringLiteral(".pdf"));
    for (int n = 2; QFileInfo::exists(path); ++n)
        path = dir.absoluteFilePath(stem + QStringLiteral(" (%1).pdf").arg(n));
    return path;
}

bool printCommand(Notifier& notifier, const std::function<void()>& letEventsRun,
                  const std::function<PrintResult()>& printPage) {
    if (notifier.MsgboxA(QStringLiteral("Print Current Puzzle and its Solution on a page?"),
                         QStringLiteral("vbinformation+vbyesno")) != AnswerYes)
        return false;
    letEventsRun();
    const PrintResult result = printPage();
    switch (result.outcome) {
    case PrintResult::Outcome::Printed:
        notifier.MsgboxA(QStringLiteral("Printed"), QStringLiteral("vbok+vbinformation"));
        break;
    case PrintResult::Outcome::Saved:
        notifier.MsgboxA(QStringLiteral("Printed\nSaved as ") +
                             QDir::toNativeSeparators(result.file),
                         QStringLiteral("vbok+vbinformation"));
        break;
    case PrintResult::Outcome::Failed:
        notifier.MsgboxA(QStringLiteral("The page was not printed.\n") + result.error,
                         QStringLiteral("vbok+vbcritical"));
        break;
    }
    letEventsRun();
    return result.outcome != PrintResult::Outcome::Failed;
}
