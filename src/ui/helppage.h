// What the help window may hand its browser: the help page when it is a regular file the
// browser can lay out at once, otherwise a short page saying why it is not shown. QtCore only.
//
// The browser's cost is not the file's size alone: tables inside tables double the layout
// work per level (20 levels freeze it for seconds, thousands overflow the stack), items of
// one list and style rules times elements grow as a square, and a line that cannot be broken
// is laid out as one. So the page is measured in one pass before the browser sees it, and
// refused past any of these bounds (the shipped page, about 20 KB, is far inside each).
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>

namespace HelpPage {

constexpr qint64 MaxBytes = 1024 * 1024;
constexpr int MaxDepth = 64;        // elements open at once
constexpr int MaxTableDepth = 4;    // tables inside tables
constexpr int MaxElements = 2000;   // start tags
constexpr int MaxStyleRules = 200;  // rule blocks of <style> elements
constexpr int MaxWordLength = 2000; // characters of text between blanks

// The page as the bounds see it. Nesting follows the browser's own parser: an element whose
// end tag is optional (p, li, td, tr...) ends where the next one of its kind begins, an end
// tag closes everything opened after its element, and "/>" or a void element opens nothing.
// Counting stops once a bound is passed.
struct Shape {
    int depth = 0;      // the most elements open at once
    int tableDepth = 0; // the most tables open at once
    int elements = 0;
    int styleRules = 0;
    int longestWord = 0;
};
Shape measure(QStringView html);

// Why a page of `shape` is not shown ("" when it is within every bound).
QString refusal(const Shape& shape);

// What the browser is given for the page `bytes` read from `path`: the page decoded as the
// browser decodes HTML (a charset it declares, else UTF-8), or a short page naming `path` and
// saying why it is not shown.
QString showable(const QByteArray& bytes, const QString& path);

// The same for the file at `path`, read only when it is a regular file of at most MaxBytes
// (never waiting on a FIFO). A missing file gives "": the browser shows nothing for it.
QString load(const QString& path);

// The page as last loaded, kept until the file changes, so that showing the window again
// lays out nothing new unless there is something new to show.
class LoadedPage {
public:
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

    bool m_loaded = false;
    QString m_path;
    Stamp m_stamp;
    QString m_text;
};

} // namespace HelpPage
