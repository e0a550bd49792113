// Measuring the help page before the browser sees it; see helppage.h.
#include "ui/helppage.h"

#include "core/regularfile.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <vector>

namespace HelpPage {
namespace {

bool oneOf(const QString& name, std::initializer_list<const char*> names) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* n) { return name == QLatin1StringView(n); });
}

// Elements that never hold children (the browser opens nothing for them).
bool isVoid(const QString& name) {
    return oneOf(name, {"br", "hr", "img", "meta"});
}

// Elements known to sit inside a line. Everything else, unknown names included, counts as a
// block where that keeps the count on the safe side (a paragraph never closes past it).
bool isInline(const QString& name) {
    return oneOf(name, {"a",    "abbr",   "b",   "big",  "cite", "code", "dfn",  "em",
                        "font", "i",      "kbd", "nobr", "q",    "s",    "samp", "small",
                        "span", "strong", "sub", "sup",  "tt",   "u",    "var"});
}

// Elements that certainly end a line of text (so a word ends there too).
bool breaksLine(const QString& name) {
    return oneOf(name,
                 {"address", "blockquote", "body", "br",    "caption", "center", "dd",    "div",
                  "dl",      "dt",         "h1",   "h2",    "h3",      "h4",     "h5",    "h6",
                  "hr",      "html",       "li",   "ol",    "p",       "pre",    "table", "tbody",
                  "td",      "tfoot",      "th",   "thead", "tr",      "ul"});
}

// Where the browser lets an element stand: `parent` is the innermost open element.
bool allowedIn(const QString& name, const QString& parent) {
    if (name == u"dd")
        return parent == u"dt" || parent == u"dl";
    if (name == u"dt")
        return parent == u"dl";
    if (name == u"tr")
        return oneOf(parent, {"table", "thead", "tbody", "tfoot"});
    if (name == u"td" || name == u"th")
        return parent == u"tr";
    if (oneOf(name, {"thead", "tbody", "tfoot", "caption"}))
        return parent == u"table";
    if (name == u"body")
        return parent != u"head";
    return true;
}

bool within(const Shape& shape) {
    return shape.depth <= MaxDepth && shape.tableDepth <= MaxTableDepth &&
           shape.elements <= MaxElements && shape.styleRules <= MaxStyleRules &&
           shape.longestWord <= MaxWordLength;
}

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\f';
}

class Scanner {
public:
    explicit Scanner(QStringView html)
        : m_s(html) {}

    Shape run() {
        while (m_i < m_s.size() && within(m_shape)) {
            const QChar c = m_s[m_i++];
            if (c == u'<') {
                tag();
                continue;
            }
            if (isBlank(c) && !holds(u"nobr")) {
                m_word = 0;
            } else {
                m_shape.longestWord = std::max(m_shape.longestWord, ++m_word);
            }
            if (c == u'{' && !m_open.empty() && m_open.back() == u"style")
                ++m_shape.styleRules;
        }
        return m_shape;
    }

private:
    bool at(QChar c) const { return m_i < m_s.size() && m_s[m_i] == c; }
    void skipBlanks() {
        while (m_i < m_s.size() && m_s[m_i].isSpace())
            ++m_i;
    }
    bool holds(QStringView name) const {
        return std::find(m_open.begin(), m_open.end(), name) != m_open.end();
    }

    // A word of a tag: quoted (to the closing quote) or up to a blank, "<", ">", "=" or "/>".
    QString word() {
        QString text;
        if (at(u'"') || at(u'\'')) {
            const QChar quote = m_s[m_i++];
            while (m_i < m_s.size() && m_s[m_i] != quote)
                text += m_s[m_i++];
            ++m_i;
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
            skipBlanks();
            if (at(u'>') || at(u'/') || word().isEmpty())
                return;
            skipBlanks();
            if (at(u'=')) {
                ++m_i;
                skipBlanks();
                word();
            }
        }
    }

    void tag() {
        skipBlanks();
        if (at(u'!')) { // a comment or a declaration
            ++m_i;
            if (m_s.sliced(m_i).startsWith(u"--")) {
                const qsizetype end = m_s.indexOf(u"-->", m_i + 2);
                m_i = end < 0 ? m_s.size() : end + 3;
            } else {
                skipPast(u'>');
            }
            return;
        }
        if (at(u'/')) {
            ++m_i;
            const QString name = word().toLower().trimmed();
            skipPast(u'>');
            close(name);
            return;
        }
        const QString name = word().toLower();
        if (m_i < m_s.size() && m_s[m_i].isSpace())
            attributes();
        bool closed = false;
        while (m_i < m_s.size() && m_s[m_i] != u'>')
            closed |= m_s[m_i++] == u'/';
        ++m_i;
        if (name.isEmpty())
            return;
        ++m_shape.elements;
        if (breaksLine(name))
            m_word = 0;
        open(name, closed || isVoid(name));
    }

    void skipPast(QChar c) {
        while (m_i < m_s.size() && m_s[m_i++] != c) {
        }
    }

    void open(const QString& name, bool empty) {
        // A cell or a row outside any row or table gets one made for it.
        if ((name == u"td" || name == u"th") && !holds(u"tr")) {
            push(QStringLiteral("table"));
            push(QStringLiteral("tr"));
        } else if (name == u"tr" && !holds(u"table")) {
            push(QStringLiteral("table"));
        }
        // A paragraph ends one it stands in when only inline elements lie between.
        if (name == u"p") {
            auto block = std::find_if(m_open.rbegin(), m_open.rend(),
                                      [](const QString& open) { return !isInline(open); });
            if (block != m_open.rend() && *block == u"p")
                m_open.erase(std::prev(block.base()), m_open.end());
        }
        if ((name == u"p" || name == u"li") && !m_open.empty() && m_open.back() == name)
            m_open.pop_back();
        while (!m_open.empty() && !allowedIn(name, m_open.back()))
            m_open.pop_back();
        if (!empty)
            push(name);
    }

    void push(const QString& name) {
        m_open.push_back(name);
        m_shape.depth = std::max(m_shape.depth, int(m_open.size()));
        const auto tables = std::count(m_open.begin(), m_open.end(), QStringLiteral("table"));
        m_shape.tableDepth = std::max(m_shape.tableDepth, int(tables));
    }

    // An end tag closes its element and everything opened after it; one with nothing to
    // close is ignored.
    void close(const QString& name) {
        const auto it = std::find(m_open.rbegin(), m_open.rend(), name);
        if (it != m_open.rend())
            m_open.erase(std::prev(it.base()), m_open.end());
    }

    QStringView m_s;
    qsizetype m_i = 0;
    Shape m_shape;
    std::vector<QString> m_open;
    int m_word = 0;
};

} // namespace

Shape measure(QStringView html) {
    return Scanner(html).run();
}

QString refusal(const Shape& shape) {
    if (shape.tableDepth > MaxTableDepth)
        return QStringLiteral("its tables are nested more than %1 deep").arg(MaxTableDepth);
    if (shape.depth > MaxDepth)
        return QStringLiteral("its elements are nested more than %1 deep").arg(MaxDepth);
    if (shape.elements > MaxElements)
        return QStringLiteral("it has more than %1 elements").arg(MaxElements);
    if (shape.styleRules > MaxStyleRules)
        return QStringLiteral("it has more than %1 style rules").arg(MaxStyleRules);
    if (shape.longestWord > MaxWordLength)
        return QStringLiteral("it has a line that cannot be broken of more than %1 characters")
            .arg(MaxWordLength);
    return QString();
}

namespace {

QString notShown(const QString& path, const QString& why) {
    return QStringLiteral("<p>The help page %1 is not shown: %2.</p>")
        .arg(path.toHtmlEscaped(), why.toHtmlEscaped());
}

} // namespace

QString showable(const QByteArray& bytes, const QString& path) {
    if (bytes.size() > MaxBytes)
        return notShown(path, QStringLiteral("it is larger than 1 MB"));
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    if (!decoder.isValid())
        decoder = QStringDecoder(QStringDecoder::Utf8);
    const QString html = decoder.decode(bytes);
    const QString why = refusal(measure(html));
    return why.isEmpty() ? html : notShown(path, why);
}

QString load(const QString& path) {
    const RegularFileRead read = readRegularFile(path, MaxBytes);
    switch (read.status) {
    case RegularFileRead::Status::Read:
        return showable(read.bytes, path);
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
        m_text = load(path);
        m_loaded = true;
    }
    return m_text;
}

} // namespace HelpPage
