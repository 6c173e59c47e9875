#pragma once

#include <cstdint>
#include <string_view>

#include "platform/store/Tokenizer.h"

namespace bravona {

// Walks over the tokens of a statement. What it does not find where it must stand is an Errore of the given number,
// with the place.
class TokenReader {
protected:
    TokenReader(const Tokens& tokens, std::uint32_t failure) : all_(tokens), failure_(failure) {}
    ~TokenReader() = default;

    static constexpr int deepest = 60;

    // Refuses what is nested too deeply.
    class Depth {
    public:
        explicit Depth(TokenReader& reader) : reader_(reader)
        {
            if (++reader_.depth_ > deepest) {
                --reader_.depth_;
                reader_.fail("istruzione troppo annidata");
            }
        }
        ~Depth() { --reader_.depth_; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        TokenReader& reader_;
    };

    [[nodiscard]] const Token& peek(std::size_t ahead = 0) const;
    const Token& take();
    [[nodiscard]] bool isWord(std::string_view word, std::size_t ahead = 0) const;
    [[nodiscard]] bool isSymbol(char c, std::size_t ahead = 0) const;
    // A word that is none of the dialect's own, or anything between brackets.
    [[nodiscard]] bool isName(std::size_t ahead = 0) const;
    bool takeWord(std::string_view word);
    bool takeSymbol(char c);
    void needWord(std::string_view word, std::string_view what);
    void needSymbol(char c, std::string_view what);
    std::string_view name(std::string_view what);
    std::string_view anyName(std::string_view what);  // the dialect's own words too
    void needEnd();                                   // at most a semicolon before it
    [[noreturn]] void fail(std::string_view what) const { failAt(peek().start, what); }
    [[noreturn]] void failAt(std::size_t offset, std::string_view what) const;

    const Tokens& all_;
    std::size_t at_ = 0;

private:
    std::uint32_t failure_;
    int depth_ = 0;
};

}  // namespace bravona
