// The error the compressed-file container reports to its caller: a number, the member that
// failed and a description, as a C++ exception.
#pragma once

#include <QString>

#include <stdexcept>

class ZipError : public std::runtime_error {
public:
    // Numbers of the failures that are not zlib's own result codes (zlib's are negative).
    enum : int {
        FileNotFound = 53,       // the source file is missing
        FileAccess = 75,         // a file could not be opened, read or written
        FileTooLarge = 1001,     // a source longer than the 32-bit length field can describe
        DamagedContainer = 1002, // a header that cannot describe real data; nothing is allocated
    };

    ZipError(int number, const QString& source, const QString& description)
        : std::runtime_error((source + QStringLiteral(": ") + description).toStdString())
        , m_number(number)
        , m_source(source)
        , m_description(description) {}

    int number() const { return m_number; }
    const QString& source() const { return m_source; }
    const QString& description() const { return m_description; }

private:
    int m_number;
    QString m_source;
    QString m_description;
};
