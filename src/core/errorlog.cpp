// The error record: message text, log line and appending to the log; see errorlog.h.
#include "core/errorlog.h"

#include "core/appfolder.h"
#include "core/notifier.h"

#include <QFile>
#include <QSysInfo>

namespace {

const QString kLineBreak = QStringLiteral("\r\n");

QString quoted(const QString& text) {
    return u'"' + text + u'"';
}

} // namespace

QString versionText() {
    return QString::fromLatin1(kApplicationTitle) + QStringLiteral(" v") +
           QStringLiteral(PENTALINK_VERSION);
}

QString userName() {
    const QString user = qEnvironmentVariable("USER");
    return user.isEmpty() ? qEnvironmentVariable("USERNAME") : user;
}

QString computerName() {
    return QSysInfo::machineHostName();
}

QString errorMessageText(const ErrorRecord& record) {
    QString text = QStringLiteral("Error occured: ") + record.number + kLineBreak;
    if (!record.description.isEmpty())
        text += QStringLiteral("Description: ") + record.description + kLineBreak;
    if (!record.module.isEmpty())
        text += QStringLiteral("Module: ") + record.module + kLineBreak;
    if (!record.function.isEmpty())
        text += QStringLiteral("Function: ") + record.function;
    return text;
}

QString errorLogLine(const QDateTime& when, const ErrorRecord& record) {
    const QStringList fields = {
        u'#' + when.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) + u'#',
        quoted(record.number),
        quoted(record.description),
        quoted(record.module),
        quoted(record.function),
        quoted(versionText()),
        quoted(userName()),
        quoted(computerName()),
    };
    return fields.join(u',');
}

bool appendErrorLogLine(const QString& logPath, const QDateTime& when, const ErrorRecord& record) {
    // Unbuffered, so every write reaches the file at once and a short one is seen here
    // rather than lost in a final flush.
    QFile file(logPath);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered))
        return false;
    const qint64 before = file.size();
    QByteArray line = (errorLogLine(when, record) + kLineBreak).toUtf8();
    // A record torn by an earlier failure (or by an editor) must not swallow this one.
    if (before > 0 && file.seek(before - 1) && file.read(1) != "\n")
        line.prepend(kLineBreak.toUtf8());
    // A record is written whole or not at all: a short write (a full disk, a size limit) is
    // cut back off, so the log never ends in half a line.
    if (file.write(line) != line.size() || !file.flush()) {
        file.resize(before);
        return false;
    }
    file.close();
    return file.error() == QFileDevice::NoError;
}

void reportError(Notifier* notifier, const QDateTime& when, const ErrorRecord& record) {
    if (notifier) {
        notifier->standardBox(errorMessageText(record), QStringLiteral("vbcritical+vbok"),
                              QString::fromLatin1(kApplicationTitle) + QStringLiteral(" - ERROR"));
    }
    appendErrorLogLine(AppFolder() + QStringLiteral("ErrorLog.txt"), when, record);
}
