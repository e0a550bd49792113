// Turning the bytes of a text file the program reads into lines: files written by this
// program are UTF-8, files from older Windows setups are in the Windows-1252 code page.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The character a Windows-1252 byte stands for (the five bytes the code page leaves undefined
// map to the control characters of the same number).
char16_t windows1252ToUnicode(unsigned char byte);

// Decodes `bytes` as UTF-8 when they are valid UTF-8 (a leading byte-order mark is dropped),
// otherwise as Windows-1252 (the five bytes that code page leaves undefined map to the
// control characters of the same number). Never fails.
QString decodeText(const QByteArray& bytes);

// Splits `text` into lines; a line ends at CR LF, LF or CR. A final line without an ending
// counts; the ending after the last line does not start another one ("a\r\nb\r\n" is two
// lines, "" is none).
QStringList splitTextLines(const QString& text);
