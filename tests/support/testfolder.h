// A throw-away program folder: $PENTALINK_HOME points at it while it lives, and
// $PENTALINK_DATA_DIR at no folder, so no installed game seeds it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class TestFolder {
public:
    TestFolder();
    ~TestFolder(); // restores both variables and forgets the cached AppFolder()
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    // The folder, ending in "/", and a file in it.
    QString path() const { return m_dir.path() + u'/'; }
    QString file(const QString& name) const { return path() + name; }
    void write(const QString& name, const QByteArray& bytes) const;
    // Each line ended by CR LF; returns file(name).
    QString writeLines(const QString& name, const QStringList& lines) const;
    // "" when missing.
    QByteArray read(const QString& name) const;
    // Copies a file of the repository's data/ folder into the folder.
    void copyShipped(const QString& name) const;

private:
    QTemporaryDir m_dir;
    QByteArray m_previousHome;
    bool m_hadHome = false;
    QByteArray m_previousData;
    bool m_hadData = false;
};

// An empty regular file at `path`, which not even root can create folders through.
bool touchFile(const QString& path);

// The repository's data/ folder, ending in "/".
QString shippedDataDir();
