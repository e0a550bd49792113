// A throw-away program folder for one test: a temporary directory that $PENTALINK_HOME points
// at while the object lives, optionally seeded with the shipped data files. Automatic seeding
// from an installed game is switched off meanwhile ($PENTALINK_DATA_DIR names no folder).
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class TestFolder {
public:
    // Creates the folder and points $PENTALINK_HOME (and AppFolder()) at it.
    TestFolder();
    // Restores the previous $PENTALINK_HOME and $PENTALINK_DATA_DIR and forgets the cached
    // AppFolder().
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    // The folder, ending in "/", and a file in it.
    QString path() const { return m_dir.path() + u'/'; }
    QString file(const QString& name) const { return path() + name; }
    // Writes `bytes` to path() + name, replacing any file of that name.
    void write(const QString& name, const QByteArray& bytes) const;
    // Writes `lines` to path() + name, each ended by CR LF, and returns file(name).
    QString writeLines(const QString& name, const QStringList& lines) const;
    // The whole content of path() + name ("" when missing).
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

// Creates an empty regular file at `path` (replacing one); false when it cannot. A path
// through such a file is one that not even root can create folders along.
bool touchFile(const QString& path);

// The repository's data/ folder, ending in "/".
QString shippedDataDir();
