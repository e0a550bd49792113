// Measuring the help page before the browser sees it; see helppage.h.
#include "ui/helppage.h"

#include "core/regularfile.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

namespace HelpPage {
namespace {

bool oneOf(QStringView name, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* n) { return name == QLatin1StringView(n); });
}

// Elements that certainly end a line of text, so a word ends there too.
bool breaksLine(QStringView name) {
    return oneOf(name,
                 {"address", "blockquote", "body", "br",    "caption", "center", "dd",    "div",
                  "dl",      "dt",         "h1",   "h2",    "h3",      "h4",     "h5",    "h6",
                  "hr",      "html",       "li",   "ol",    "p",       "pre",    "table", "tbody",
                  "td",      "tfoot",      "th",   "thead", "tr",      "ul"});
}

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

bool within(const Shape& shape) {
    return shape.elements <= MaxElements && shape.styleRules <= MaxStyleRules &&
           shape.longestWord <= MaxWordLength && shape.tableDepth <= MaxTableDepth;
}

// One pass over the text. Start tags are counted at every "<" that the parser could take for
// one (anywhere, comments and attribute values included), so the count is never below the
// parser's. Words and style rules follow the parser's reading of tags: every "<" outside a
// tag opens one ("<!--" a comment, "<!" a declaration, "</" an end tag), attribute words may
// be quoted, and a tag runs to the next ">" after its attributes.
class Scanner {
public:
    explicit Scanner(QStringView html)
        : m_s(html) {}

    Shape run() {
        m_shape.elements = startTags();
        while (m_i < m_s.size() && within(m_shape)) {
            const QChar c = m_s[m_i++];
            if (c == u'<') {
                tag();
            } else if (isBlank(c) && m_nobr == 0) {
                m_word = 0;
            } else {
                m_shape.longestWord = std::max(m_shape.longestWord, ++m_word);
                if (c == u'{' && m_style > 0)
                    ++m_shape.styleRules;
            }
        }
        return m_shape;
    }

private:
    bool at(QChar c) const { return m_i < m_s.size() && m_s[m_i] == c; }
    void skipSpace() {
        while (m_i < m_s.size() && m_s[m_i].isSpace())
            ++m_i;
    }
    void skipPast(QChar c) {
        while (m_i < m_s.size() && m_s[m_i++] != c) {
        }
    }

    int startTags() const {
        int count = 0;
        for (qsizetype i = m_s.indexOf(u'<'); i >= 0 && count <= MaxElements;
             i = m_s.indexOf(u'<', i + 1)) {
            qsizetype k = i + 1;
            while (k < m_s.size() && m_s[k].isSpace())
                ++k;
            count += k >= m_s.size() || (m_s[k] != u'/' && m_s[k] != u'!');
        }
        return count;
    }

    // A word of a tag: quoted, or up to a blank, "<", ">", "=" or "/>".
    QString word() {
        QString text;
        if (at(u'"') || at(u'\'')) {
            const QChar quote = m_s[m_i++];
            while (m_i < m_s.size()) {
                const QChar c = m_s[m_i++];
                // In single quotes a backslash keeps the quote after it.
                if (c == quote && (quote == u'"' || m_s[m_i - 2] != u'\\'))
                    break;
                text += c;
            }
            return text;
        }
        while (m_i < m_s.size()) {
            const QChar c = m_s[m_i];
            if (c == u'>' || c == u'<' || c == u'=' || c.isSpace() ||
                (c == u'/' && m_i + 1 < m_s.size() && m_s[m_i + 1] == u'>'))
                break;
            text += c;
            ++m_i;
        }
        return text;
    }

    void attributes() {
        while (m_i < m_s.size()) {
            skipSpace();
            if (at(u'>') || at(u'/') || word().isEmpty())
                return;
            skipSpace();
            if (at(u'=')) {
                ++m_i;
                skipSpace();
                word();
            }
        }
    }

    void tag() {
        skipSpace();
        if (at(u'!')) {
            ++m_i;
            if (m_s.sliced(m_i).startsWith(u"--")) {
                const qsizetype end = m_s.indexOf(u"-->", m_i + 2);
                m_i = end < 0 ? m_s.size() : end + 3;
            } else {
                skipPast(u'>');
            }
            return;
        }
        const bool end = at(u'/');
        if (end)
            ++m_i;
        const QString name = word().toLower().trimmed();
        if (!end && m_i < m_s.size() && m_s[m_i].isSpace())
            attributes();
        skipPast(u'>');
        if (breaksLine(name))
            m_word = 0;
        const int step = end ? -1 : 1;
        if (name == u"nobr")
            m_nobr = std::max(0, m_nobr + step);
        else if (name == u"style")
            m_style = std::max(0, m_style + step);
    }

    QStringView m_s;
    qsizetype m_i = 0;
    Shape m_shape;
    int m_word = 0;
    int m_nobr = 0;  // <nobr> elements open: blanks break no line inside them
    int m_style = 0; // <style> elements open
};

QString notShown(const QString& path, const QString& why) {
    return QStringLiteral("<p>The help page %1 is not shown: %2.</p>")
        .arg(path.toHtmlEscaped(), why.toHtmlEscaped());
}

} // namespace

Shape measure(QStringView html) {
    return Scanner(html).run();
}

QString refusal(const Shape& shape) {
    if (shape.tableDepth > MaxTableDepth)
        return QStringLiteral("its tables are nested more than %1 deep").arg(MaxTableDepth);
    if (shape.elements > MaxElements)
        return QStringLiteral("it has more than %1 elements").arg(MaxElements);
    if (shape.styleRules > MaxStyleRules)
        return QStringLiteral("it has more than %1 style rules").arg(MaxStyleRules);
    if (shape.longestWord > MaxWordLength)
        return QStringLiteral("it has a line that cannot be broken of more than %1 characters")
            .arg(MaxWordLength);
    return QString();
}

QString showable(const QByteArray& bytes, const QString& path, const TableDepth& tableDepth) {
    if (bytes.size() > MaxBytes)
        return notShown(path, QStringLiteral("it is larger than 1 MB"));
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    const QString html = decoder.decode(bytes);
    Shape shape = measure(html);
    // The parser is asked only about a page whose size and element count keep it quick.
    if (refusal(shape).isEmpty() && tableDepth)
        shape.tableDepth = tableDepth(html);
    const QString why = refusal(shape);
    return why.isEmpty() ? html : notShown(path, why);
}

QString load(const QString& path, const TableDepth& tableDepth) {
    const RegularFileRead read = readRegularFile(path, MaxBytes);
    switch (read.status) {
    case RegularFileRead::Status::Read:
        return showable(read.bytes, path, tableDepth);
    case RegularFileRead::Status::Missing:
        return QString();
    case RegularFileRead::Status::NotRegular:
        return notShown(path, QStringLiteral("it is not a regular file"));
    case RegularFileRead::Status::TooLarge:
        return notShown(path, QStringLiteral("it is larger than 1 MB"));
    case RegularFileRead::Status::Unreadable:
        break;
    }
    return notShown(path, QStringLiteral("it cannot be read"));
}

LoadedPage::Stamp LoadedPage::stampOf(const QString& path) {
    const QFileInfo info(path); // a stat: nothing is opened
    if (!info.exists())
        return {};
    return {true, info.size(), info.lastModified(), info.metadataChangeTime()};
}

bool LoadedPage::changed(const QString& path) const {
    return !m_loaded || path != m_path || stampOf(path) != m_stamp;
}

const QString& LoadedPage::text(const QString& path) {
    if (changed(path)) {
        // Stamped before reading: a change made while it is read shows at the next look.
        m_stamp = stampOf(path);
        m_path = path;
        m_text = load(path, m_tableDepth);
        m_loaded = true;
    }
    return m_text;
}

} // namespace HelpPage
