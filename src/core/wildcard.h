// The wildcard test used by the word list's pattern searches. The pattern must match the
// whole text, character by character (code points), case-sensitively:
//   ?        any one character
//   *        any run of characters, including none
//   #        any one digit 0-9
//   [list]   any one character of the list; "a-z" in a list is the range a..z (inclusive,
//            by code point); a "-" first or last in the list stands for itself; a range
//            whose ends are in descending order matches nothing
//   [!list]  any one character not in the list
//   other    itself ("]", "!" and "-" outside a list included)
// A list runs to the first "]" after its "[" (or "[!"), so "[]" matches no character and
// "[!]" any one character. A pattern with a "[" that is never closed matches nothing.
// Matching is linear in the text for each "*" segment (a single backtrack point), so no
// pattern can make it exponential.
#pragma once

#include <QStringView>

#include <span>
#include <vector>

bool matchesWildcard(QStringView text, QStringView pattern);

// A pattern split into its tokens once, for testing many texts given as characters (code
// points): matches() gives what matchesWildcard gives for the text made of those characters.
// The pattern's text must outlive the object (lists refer to it).
class WildcardTokens {
public:
    explicit WildcardTokens(QStringView pattern);

    // True when the pattern matches no text at all (a "[" never closed).
    bool matchesNothing() const { return m_unclosed; }
    bool matches(std::span<const char32_t> text) const;
    // The number of tokens before the first "*" (all of them when there is none): a text that
    // matches has at least this many characters, and the first ones match these tokens.
    int fixedPrefix() const { return m_fixedPrefix; }
    // When token `position` (< fixedPrefix()) is a plain character: that character, else 0
    // (no plain token is the character 0 in a pattern the generator builds; 0 is then only
    // "not known").
    char32_t literalAt(int position) const;
    // The tokens one by one: a "*", or a token taking one character.
    int tokenCount() const { return static_cast<int>(m_tokens.size()); }
    bool isStar(int token) const { return m_tokens[static_cast<size_t>(token)].type == Type::Star; }
    // Whether token `token` (not a "*") takes the character `c`.
    bool takes(int token, char32_t c) const {
        return matchesToken(m_tokens[static_cast<size_t>(token)], c);
    }

private:
    enum class Type : quint8 { Star, Any, Digit, Literal, List, NegatedList };
    struct Token {
        Type type;
        char32_t c = 0;        // Literal: the character
        QStringView list = {}; // List, NegatedList: the body between "[" ("[!") and "]"
    };
    bool matchesToken(const Token& token, char32_t c) const;

    std::vector<Token> m_tokens;
    bool m_unclosed = false;
    int m_fixedPrefix = 0;
};
