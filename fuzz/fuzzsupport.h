// Shared pieces of the fuzz targets: a scratch folder for the files a target writes, a
// notifier that gives one fixed answer to every question, whole-file helpers, and the check
// that stops a run (libFuzzer then saves the input that broke the rule).
#pragma once

#include "core/notifier.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

// Stops the run with `rule` named on stderr when `holds` is false.
inline void check(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "broken rule: %s\n", rule);
        std::abort();
    }
}

// A folder that lives as long as the fuzzing process, ending in "/". In memory (/dev/shm)
// where there is one: every atomic save syncs its file, which costs a disk dearly.
inline QString scratchFolder() {
    static QTemporaryDir dir((QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                                  ? QStringLiteral("/dev/shm")
                                  : QDir::tempPath()) +
                             QStringLiteral("/pentalink-fuzz-XXXXXX"));
    check(dir.isValid(), "a scratch folder can be made");
    return dir.path() + u'/';
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    check(file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
              file.write(bytes) == bytes.size(),
          "the scratch folder takes the input");
}

// The whole file, or a null array when it is missing.
inline QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Answers every question with `answer` and counts the messages.
class FuzzNotifier : public Notifier {
public:
    explicit FuzzNotifier(int answer = AnswerOk)
        : m_answer(answer) {}
    int MsgboxA(const QString&, const QString&) override {
        ++shown;
        return m_answer;
    }
    int standardBox(const QString&, const QString&, const QString&) override {
        ++shown;
        return m_answer;
    }
    QString inputBox(const QString&, const QString&) override {
        ++shown;
        return {};
    }
    int shown = 0;

private:
    int m_answer;
};
