// Temporary program folders for tests: see testfolder.h.
#include "support/testfolder.h"

#include "core/appfolder.h"

#include <QFile>

#include <gtest/gtest.h>

TestFolder::TestFolder()
    : m_previousHome(qgetenv("PENTALINK_HOME"))
    , m_hadHome(qEnvironmentVariableIsSet("PENTALINK_HOME")) {
    EXPECT_TRUE(m_dir.isValid());
    qputenv("PENTALINK_HOME", m_dir.path().toLocal8Bit());
    resetAppFolderForTests();
}

TestFolder::~TestFolder() {
    if (m_hadHome)
        qputenv("PENTALINK_HOME", m_previousHome);
    else
        qunsetenv("PENTALINK_HOME");
    resetAppFolderForTests();
}

QString TestFolder::path() const {
    return m_dir.path() + u'/';
}

QString TestFolder::file(const QString& name) const {
    return path() + name;
}

void TestFolder::write(const QString& name, const QByteArray& bytes) const {
    QFile f(file(name));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << name.toStdString();
    f.write(bytes);
}

QByteArray TestFolder::read(const QString& name) const {
    QFile f(file(name));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
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
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}
