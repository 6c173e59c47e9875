#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windowing/Events.h"

namespace bravona {

struct Word {
    std::string text;
    bool quoted = false;

    [[nodiscard]] bool is(std::string_view literal) const { return !quoted && text == literal; }
};

struct Step {
    int line = 0;             // from 1
    std::vector<Word> words;  // the first one is the verb

    [[nodiscard]] const std::string& verb() const { return words.front().text; }
};

// A line that is no step: an unknown verb, words that do not fit it, a quote that is not closed.
class NoSuchStep : public std::runtime_error {
public:
    NoSuchStep(int atLine, const std::string& what) : std::runtime_error(what), line(atLine) {}
    int line;
};

// The steps that stand behind the name of a firm, as a text; nullopt for a name that nobody has given.
using Firms = std::function<std::optional<std::string>(const std::string& name)>;

// The steps of a journey. `firm NAME ...` is replaced by the steps of those firms, which all bear its line. Throws
// NoSuchStep.
std::vector<Step> parseJourney(std::string_view text, const Firms& firms = {});

// "Enter", "Alt+r", "Ctrl+Home", "a"; nullopt for a key that does not exist.
std::optional<KeyEvent> parseKey(std::string_view name);
// A whole number, with a sign perhaps, and nothing else.
std::optional<long long> parseWhole(std::string_view text);

}  // namespace bravona
