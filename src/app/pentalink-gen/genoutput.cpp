// Formatting of pentalink-gen's results; see genoutput.h.
#include "genoutput.h"

#include "core/puzzlegenerator.h"
#include "core/stargrid.h"

#include <QStringList>

#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

// Where each cell sits on the character grid of the drawing (column, row).
constexpr std::array<std::array<int, 2>, StarGrid::CellCount> kCellPlace = {{
    {20, 0},
    {1, 4},
    {16, 4},
    {24, 4},
    {39, 4},
    {13, 7},
    {27, 7},
    {20, 8},
    {8, 11},
    {32, 11},
}};
constexpr int kWidth = 41;
constexpr int kHeight = 12;

using Canvas = std::vector<QString>;

void put(Canvas& canvas, int col, int row, QChar c) {
    if (row >= 0 && row < kHeight && col >= 0 && col < kWidth && canvas[row][col] == u' ')
        canvas[row][col] = c;
}

// Draws the segment between two cells, leaving the cells themselves free.
void drawSegment(Canvas& canvas, int from, int to) {
    const auto [c0, r0] = kCellPlace[from];
    const auto [c1, r1] = kCellPlace[to];
    const int dc = c1 - c0;
    const int dr = r1 - r0;
    if (dr == 0) {
        for (int c = std::min(c0, c1) + 1; c < std::max(c0, c1); ++c)
            put(canvas, c, r0, u'-');
        return;
    }
    const QChar slope = (dc > 0) == (dr > 0) ? u'\\' : u'/';
    if (std::abs(dr) * 2 >= std::abs(dc)) { // steep: one mark per row
        for (int r = std::min(r0, r1) + 1; r < std::max(r0, r1); ++r) {
            const double c = c0 + dc * double(r - r0) / dr;
            put(canvas, int(std::lround(c)), r, slope);
        }
        return;
    }
    // Shallow: one mark per column, chosen by how high in its row the line passes.
    for (int c = std::min(c0, c1) + 1; c < std::max(c0, c1); ++c) {
        const double r = r0 + dr * double(c - c0) / dc + 0.5;
        const double within = r - std::floor(r);
        const QChar top = slope == u'\\' ? u'`' : u'\'';
        const QChar mark = within < 0.2 ? top : within < 0.8 ? u'-' : u'.';
        put(canvas, c, int(std::floor(r)), mark);
    }
}

QString arrayOf(const QStringList& items) {
    return u'[' + items.join(QStringLiteral(", ")) + u']';
}

} // namespace

QString jsonString(const QString& text) {
    QString out = QStringLiteral("\"");
    for (const QChar c : text) {
        switch (c.unicode()) {
        case u'"':
            out += QStringLiteral("\\\"");
            break;
        case u'\\':
            out += QStringLiteral("\\\\");
            break;
        case u'\n':
            out += QStringLiteral("\\n");
            break;
        case u'\r':
            out += QStringLiteral("\\r");
            break;
        case u'\t':
            out += QStringLiteral("\\t");
            break;
        default:
            if (c.unicode() < 0x20 || c.unicode() == 0x7F)
                out += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            else
                out += c;
        }
    }
    return out + u'"';
}

QString puzzleJson(bool ok, const GenerationResult& generation, const StarGrid& grid,
                   int listCount) {
    const QString count = QString::number(listCount);
    if (!ok)
        return QStringLiteral("{\"ok\": false, \"list_count\": ") + count + u'}';
    QStringList cells;
    for (int p = 1; p <= StarGrid::CellCount; ++p)
        cells << jsonString(grid.SolutionLetters[p]);
    QStringList candidates;
    QStringList decoys;
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        candidates << jsonString(grid.CandidateWords[i]);
        decoys << QString::number(grid.DecoyFlags[i]);
    }
    return QStringLiteral("{\"ok\": true, \"root\": ") + jsonString(generation.root) +
           QStringLiteral(", \"cells\": ") + arrayOf(cells) + QStringLiteral(", \"candidates\": ") +
           arrayOf(candidates) + QStringLiteral(", \"decoys\": ") + arrayOf(decoys) +
           QStringLiteral(", \"list_count\": ") + count + u'}';
}

QString puzzleText(int number, const GenerationResult& generation, const StarGrid& grid,
                   int listCount) {
    Canvas canvas(kHeight, QString(kWidth, u' '));
    for (int line = 0; line < StarGrid::LineCount; ++line) {
        const auto cells = StarGrid::lineCells(line);
        for (int k = 0; k + 1 < 4; ++k)
            drawSegment(canvas, cells[k], cells[k + 1]);
    }
    QString out = QStringLiteral("Puzzle %1 (root entry \"%2\", %3 entries left)\n\n")
                      .arg(number)
                      .arg(generation.root)
                      .arg(listCount);
    // Letters go in last; a letter may be wider than one column (a surrogate pair).
    for (int row = 0; row < kHeight; ++row) {
        QString line;
        for (int col = 0; col < kWidth; ++col) {
            QString cellLetter;
            for (int cell = 0; cell < StarGrid::CellCount; ++cell) {
                if (kCellPlace[cell][0] == col && kCellPlace[cell][1] == row)
                    cellLetter = grid.SolutionLetters[cell + 1];
            }
            line += cellLetter.isEmpty() ? QString(canvas[row][col]) : cellLetter;
        }
        while (line.endsWith(u' '))
            line.chop(1);
        out += QStringLiteral("    ") + line + u'\n';
    }
    out += u'\n';
    for (int i = 1; i <= StarGrid::CandidateCount; ++i) {
        out += QStringLiteral("    %1  %2%3\n")
                   .arg(i)
                   .arg(grid.CandidateWords[i])
                   .arg(grid.DecoyFlags[i] ? QStringLiteral("  (decoy)") : QString());
    }
    return out + u'\n';
}

QString failureText(int number, int listCount) {
    return QStringLiteral(
               "Puzzle %1: unable to create a puzzle; dictionary reloaded (%2 entries)\n\n")
        .arg(number)
        .arg(listCount);
}
