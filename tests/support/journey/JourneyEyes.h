#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/journey/JourneyHost.h"
#include "support/journey/JourneySession.h"
#include "support/journey/JourneyText.h"

namespace bravona {

// What the person sees, compared with what a step expects, or, for `show`, told. One object a step.
class JourneyEyes {
public:
    // `tell` set: nothing is compared, everything is told.
    JourneyEyes(JourneySession& session, JourneyHost& host, const Step& step,
                std::function<void(const std::string&)> tell = {});
    void look();  // throws Impossible with what was expected and what was there

private:
    bool lookAround();
    void lookAtControl();
    void lookAtRow(Control& control);
    void lookAtNode(Control& control);
    void box();
    void fault();
    void paper();
    void archive();
    void files();
    void setting();

    [[nodiscard]] const Word* word(std::size_t at) const { return at < words_.size() ? &words_[at] : nullptr; }
    [[nodiscard]] bool has(std::size_t at, std::string_view literal) const
    {
        return at < words_.size() && words_[at].is(literal);
    }
    [[nodiscard]] long long number(std::size_t at) const;
    // The texts compared without "&"; nothing to compare with: told.
    void compare(const std::string& what, const std::string& actual, const Word* expected) const;
    void compareExactly(const std::string& what, const std::string& actual, const Word* expected) const;
    void compareNumber(const std::string& what, long long actual, const Word* expected) const;
    void demand(bool holds, const std::string& expected, const std::string& actual) const;

    JourneySession& session_;
    JourneyHost& host_;
    std::vector<Word> words_;  // without the verb
    std::function<void(const std::string&)> tell_;
};

// A value as `expect sql` writes it.
std::string journeyValue(const Value& value);
// A text in quotes, as a journey writes it.
std::string quotedText(const std::string& text);

}  // namespace bravona
