// The wildcard test; see wildcard.h for the language.
#include "core/wildcard.h"

#include "core/codepoints.h"

namespace {

// True when every "[" of the pattern has a closing "]".
bool listsAreClosed(QStringView pattern) {
    qsizetype p = 0;
    while (p < pattern.size()) {
        if (pattern[p] == u'[') {
            const qsizetype close = pattern.indexOf(u']', p + 1);
            if (close < 0)
                return false;
            p = close + 1;
        } else {
            ++p;
        }
    }
    return true;
}

// True when `c` is one of the characters of the list body (between "[" or "[!" and "]").
bool inList(QStringView body, char32_t c) {
    qsizetype i = 0;
    while (i < body.size()) {
        const char32_t low = nextCodePoint(body, i);
        // A "-" followed by a character makes a range; a trailing "-" is itself.
        if (i + 1 < body.size() && body[i] == u'-') {
            qsizetype after = i + 1;
            const char32_t high = nextCodePoint(body, after);
            i = after;
            if (low <= c && c <= high)
                return true;
        } else if (c == low) {
            return true;
        }
    }
    return false;
}

// Tests the single-character token at pattern position `p` (not a "*") against `c`. On a
// match sets `next` to the position after the token. Lists are known to be closed.
bool matchToken(QStringView pattern, qsizetype p, char32_t c, qsizetype& next) {
    const QChar token = pattern[p];
    if (token == u'?') {
        next = p + 1;
        return true;
    }
    if (token == u'#') {
        next = p + 1;
        return c >= U'0' && c <= U'9';
    }
    if (token == u'[') {
        qsizetype start = p + 1;
        const bool negated = start < pattern.size() && pattern[start] == u'!';
        if (negated)
            ++start;
        const qsizetype close = pattern.indexOf(u']', start);
        next = close + 1;
        return inList(pattern.sliced(start, close - start), c) != negated;
    }
    qsizetype q = p;
    const char32_t literal = nextCodePoint(pattern, q);
    next = q;
    return literal == c;
}

} // namespace

bool matchesWildcard(QStringView text, QStringView pattern) {
    if (!listsAreClosed(pattern))
        return false;
    qsizetype t = 0;
    qsizetype p = 0;
    qsizetype starP = -1; // pattern position just after the last "*" seen
    qsizetype starT = 0;  // text position that "*" is currently taken to end at
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = ++p;
            starT = t;
            continue;
        }
        if (p < pattern.size()) {
            qsizetype tNext = t;
            const char32_t c = nextCodePoint(text, tNext);
            qsizetype pNext = p;
            if (matchToken(pattern, p, c, pNext)) {
                p = pNext;
                t = tNext;
                continue;
            }
        }
        if (starP < 0)
            return false;
        // Let the last "*" swallow one more character and retry what follows it.
        nextCodePoint(text, starT);
        t = starT;
        p = starP;
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

WildcardTokens::WildcardTokens(QStringView pattern) {
    m_unclosed = !listsAreClosed(pattern);
    if (m_unclosed)
        return;
    qsizetype p = 0;
    while (p < pattern.size()) {
        const QChar token = pattern[p];
        if (token == u'*') {
            m_tokens.push_back({Type::Star});
            ++p;
        } else if (token == u'?') {
            m_tokens.push_back({Type::Any});
            ++p;
        } else if (token == u'#') {
            m_tokens.push_back({Type::Digit});
            ++p;
        } else if (token == u'[') {
            qsizetype start = p + 1;
            const bool negated = start < pattern.size() && pattern[start] == u'!';
            if (negated)
                ++start;
            const qsizetype close = pattern.indexOf(u']', start);
            m_tokens.push_back({negated ? Type::NegatedList : Type::List, 0,
                                pattern.sliced(start, close - start)});
            p = close + 1;
        } else {
            m_tokens.push_back({Type::Literal, nextCodePoint(pattern, p)});
        }
    }
    while (m_fixedPrefix < static_cast<int>(m_tokens.size()) &&
           m_tokens[static_cast<size_t>(m_fixedPrefix)].type != Type::Star)
        ++m_fixedPrefix;
}

char32_t WildcardTokens::literalAt(int position) const {
    const Token& token = m_tokens[static_cast<size_t>(position)];
    return token.type == Type::Literal ? token.c : 0;
}

bool WildcardTokens::matchesToken(const Token& token, char32_t c) const {
    switch (token.type) {
    case Type::Any:
        return true;
    case Type::Digit:
        return c >= U'0' && c <= U'9';
    case Type::Literal:
        return c == token.c;
    case Type::List:
        return inList(token.list, c);
    case Type::NegatedList:
        return !inList(token.list, c);
    case Type::Star:
        break;
    }
    return false;
}

bool WildcardTokens::matches(std::span<const char32_t> text) const {
    if (m_unclosed)
        return false;
    // The same single-backtrack walk as matchesWildcard, over tokens and characters.
    const size_t tokens = m_tokens.size();
    size_t t = 0;
    size_t k = 0;
    size_t starK = tokens + 1; // token index just after the last "*" seen (none yet)
    size_t starT = 0;
    while (t < text.size()) {
        if (k < tokens && m_tokens[k].type == Type::Star) {
            starK = ++k;
            starT = t;
            continue;
        }
        if (k < tokens && matchesToken(m_tokens[k], text[t])) {
            ++k;
            ++t;
            continue;
        }
        if (starK > tokens)
            return false;
        t = ++starT;
        k = starK;
    }
    while (k < tokens && m_tokens[k].type == Type::Star)
        ++k;
    return k == tokens;
}
