// Packed colours as the scheme collection stores them (red + 256 * green + 65536 * blue),
// split into bytes, and the text form of one colour line of "all.col" (" r; g; b").
// QtCore only.
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>
#include <stdexcept>

// A packed colour that cannot be split into bytes: a system colour (top bit set) or a value
// above 16777215.
class ColourOverflow : public std::runtime_error {
public:
    ColourOverflow();
};

// The components of a packed colour, the value taken as the signed 32-bit number it is
// stored as: red = c mod 256, green = (c div 256) mod 256, blue = (c div 65536) mod 65536,
// with div and mod keeping the sign of c. Only 0..16777215 splits; any other value throws
// ColourOverflow (a component outside 0..255).
quint8 RedByte(quint32 colour);
quint8 GreenByte(quint32 colour);
quint8 BlueByte(quint32 colour);

// The header line of the scheme called `name`: the name lower-cased followed by ".col".
QString SchemeFileName(const QString& name);

// The three numbers of a colour line as read, each 0..32767 (a value above 255 is kept here
// and counts as 255 once packed).
struct ColourComponents {
    int red = 0;
    int green = 0;
    int blue = 0;
};

// Reads a colour line: it is split at every ";", the first three fields are red, green and
// blue, further fields are ignored. A field's value is its leading number (leading blanks
// skipped, a field that starts with no number counts 0) rounded to the nearest whole
// number, ties to even. Empty for fewer than three fields or a value that is negative or
// above 32767.
std::optional<ColourComponents> readColourLine(const QString& line);

// The packed colour of three components 0..32767; each above 255 counts as 255.
quint32 packComponents(const ColourComponents& components);

// The line the collection stores for `colour`: each component with a blank in the sign
// position, joined by ";" (RGB(0, 128, 255) gives " 0; 128; 255"). Throws ColourOverflow
// for a colour that cannot be split.
QString colourLineText(quint32 colour);
