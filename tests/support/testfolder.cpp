// Temporary program folders for tests: see testfolder.h.
#include "support/testfolder.h"

#include "core/appfolder.h"

#include <QFile>

#include <gtest/gtest.h>

static void restore(const char* name, bool had, const QByteArray& value) {
    had ? void(qputenv(name, value)) : void(qunsetenv(name));
}

TestFolder::TestFolder()
    : m_previousHome(qgetenv("PENTALINK_HOME"))
    , m_hadHome(qEnvironmentVariableIsSet("PENTALINK_HOME"))
    , m_previousData(qgetenv("PENTALINK_DATA_DIR"))
    , m_hadData(qEnvironmentVariableIsSet("PENTALINK_DATA_DIR")) {
    EXPECT_TRUE(m_dir.isValid());
    qputenv("PENTALINK_HOME", m_dir.path().toLocal8Bit());
    qputenv("PENTALINK_DATA_DIR", (m_dir.path() + QStringLiteral("/no-data")).toLocal8Bit());
    resetAppFolderForTests();
}

TestFolder::~TestFolder() {
    restore("PENTALINK_HOME", m_hadHome, m_previousHome);
    restore("PENTALINK_DATA_DIR", m_hadData, m_previousData);
    resetAppFolderForTests();
}

void TestFolder::write(const QString& name, const QByteArray& bytes) const {
    QFile f(file(name));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << name.toStdString();
    f.write(bytes);
}

QString TestFolder::writeLines(const QString& name, const QStringList& lines) const {
    write(name, (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8());
    return file(name);
}

QByteArray TestFolder::read(const QString& name) const {
    QFile f(file(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void TestFolder::copyShipped(const QString& name) const {
    QFile::remove(file(name));
    ASSERT_TRUE(QFile::copy(shippedDataDir() + name, file(name))) << name.toStdString();
    QFile(file(name)).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

QString shippedDataDir() {
    return QStringLiteral(PENTALINK_SOURCE_DATA_DIR "/");
}

bool touchFile(const QString& path) {
    return QFile(path).open(QIODevice::WriteOnly | QIODevice::Truncate);
}
