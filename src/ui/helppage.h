// What the help window may hand its browser: the help page when it is a regular file the
// browser can lay out at once, otherwise a short page saying why it is not shown. QtCore only;
// the window supplies the one measure that needs the browser's own parser.
//
// The browser's cost is not the file's size alone: tables inside tables double the layout
// work per level (20 levels freeze it for seconds, thousands overflow the stack), the parser's
// work grows as the square of the nesting and of the items of one list, style rules are
// matched against every element, and a line that cannot be broken is laid out as one. So the
// page is measured before the browser sees it, and refused past any of these bounds (the
// shipped page, about 20 KB, is far inside each).
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <functional>

namespace HelpPage {

constexpr qint64 MaxBytes = 1024 * 1024;
constexpr int MaxElements = 2000;   // start tags
constexpr int MaxStyleRules = 200;  // rule blocks of <style> elements
constexpr int MaxWordLength = 2000; // characters of text no line may break
constexpr int MaxTableDepth = 4;    // tables inside tables, as the browser nests them

struct Shape {
    int elements = 0;
    int styleRules = 0;
    int longestWord = 0; // characters between blanks or line-breaking tags (more inside <nobr>)
    int tableDepth = 0;
};

// The counts a single pass over the text can make; tableDepth is left 0. Counting stops
// once a bound is passed.
Shape measure(QStringView html);

// Why a page of `shape` is not shown ("" when it is within every bound).
QString refusal(const Shape& shape);

// How deep the browser's own parser nests the tables of `html`: only that parser knows (it
// makes tables for cells and rows standing outside one, and nests tables that stand in a table
// outside its cells), and it is asked only for a page within the other bounds.
using TableDepth = std::function<int(const QString& html)>;

// What the browser is given for the page `bytes` read from `path`: the page decoded as the
// browser decodes HTML (a charset it declares, else UTF-8), or a short page naming `path` and
// saying why it is not shown.
QString showable(const QByteArray& bytes, const QString& path, const TableDepth& tableDepth);

// The same for the file at `path`, read only when it is a regular file of at most MaxBytes
// (never waiting on a FIFO). A missing file gives "": the browser shows nothing for it.
QString load(const QString& path, const TableDepth& tableDepth);

// The page as last loaded, kept until the file changes, so that showing the window again
// lays out nothing new unless there is something new to show.
class LoadedPage {
public:
    explicit LoadedPage(TableDepth tableDepth)
        : m_tableDepth(std::move(tableDepth)) {}

    // load(path), read again only when the file at `path` changed since the last call (its
    // size, modification or status-change time, or its being there at all).
    const QString& text(const QString& path);
    // True when text(path) would read the file again.
    bool changed(const QString& path) const;

private:
    struct Stamp {
        bool exists = false;
        qint64 size = 0;
        QDateTime modified;
        QDateTime statusChanged;
        bool operator==(const Stamp&) const = default;
    };
    static Stamp stampOf(const QString& path);

    TableDepth m_tableDepth;
    bool m_loaded = false;
    QString m_path;
    Stamp m_stamp;
    QString m_text;
};

} // namespace HelpPage
