#include "support/journey/JourneyText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "platform/text/Text.h"
#include "platform/values/Date.h"

namespace bravona {

namespace {

// Words of a line. A text stands between double quotes; \" \\ and \n in it are a quote, a backslash and a line break.
std::vector<Word> wordsOf(std::string_view line, int number)
{
    std::vector<Word> words;
    std::size_t at = 0;
    const auto blank = [&] { return line[at] == ' ' || line[at] == '\t'; };
    while (at < line.size()) {
        if (blank()) {
            ++at;
            continue;
        }
        Word word;
        if (line[at] != '"') {
            while (at < line.size() && !blank()) {
                word.text += line[at++];
            }
            words.push_back(std::move(word));
            continue;
        }
        word.quoted = true;
        bool closed = false;
        for (++at; at < line.size() && !closed; ++at) {
            if (line[at] == '"') {
                closed = true;
            } else if (line[at] == '\\' && at + 1 < line.size() &&
                       std::string_view("\"\\n").find(line[at + 1]) != std::string_view::npos) {
                ++at;
                word.text += line[at] == 'n' ? '\n' : line[at];
            } else {
                word.text += line[at];
            }
        }
        if (!closed) {
            throw NoSuchStep(number, "a text is not closed");
        }
        words.push_back(std::move(word));
    }
    return words;
}

// What may follow each verb, one shape a line of the table. w: any word; c: a control, which no
// word of `expect` itself can be; t: a text in quotes; n: a whole number; r: a
// row, by number or text; i: a position, "#2"; d: a date; k: a key; a: an answer; h: bytes as hexadecimal digits; * and
// t*: any number of words or texts; =x: the word x.
const std::multimap<std::string, std::string, std::less<>>& shapes()
{
    static const std::multimap<std::string, std::string, std::less<>> table{
        {"folder", "=bare"},
        {"folder", "=delivered"},
        {"today", "d"},
        {"setting", "w w t"},
        {"year", "n"},
        {"firm", "w *"},
        {"sql", "t"},
        {"copy", "t t"},
        {"write", "t t"},
        {"bytes", "t"},
        {"bytes", "t h"},
        {"start", ""},
        {"restart", ""},
        {"menu", "w"},
        {"front", "w"},
        {"focus", "w"},
        {"type", "t"},
        {"type", "w t"},
        {"key", "k"},
        {"press", "w"},
        {"choose", "w t"},
        {"choose", "w i"},
        {"select", "w r"},
        {"doubleclick", "w"},
        {"doubleclick", "w r"},
        {"rightclick", "w"},
        {"column", "w n"},
        {"spin", "w =up"},
        {"spin", "w =down"},
        {"paste", "w t"},
        {"tick", "w r =on"},
        {"tick", "w r =off"},
        {"check", "w =on"},
        {"check", "w =off"},
        {"node", "w t"},
        {"cell", "w n n"},
        {"cell", "w n n t"},
        {"cellbutton", "w n n"},
        {"deleterow", "w n"},
        {"date", "w d"},
        {"tab", "w n"},
        {"close", ""},
        {"answer", "a"},
        {"file", "t"},
        {"colour", "n"},
        {"colour", "=cancel"},
        {"wait", "n"},
        {"fault", "=file t n"},
        {"fault", "w n"},
        {"fault", "w n n"},
        {"boxes", "=free"},
        {"picture", "w"},
        {"show", "w *"},
        {"expect", "=caption t"},
        {"expect", "=open w"},
        {"expect", "=closed w"},
        {"expect", "=loaded w"},
        {"expect", "=box t t *"},
        {"expect", "=box t =begins t *"},
        {"expect", "=nobox"},
        {"expect", "=preview t"},
        {"expect", "=pages n"},
        {"expect", "=printed n w t"},
        {"expect", "=printed n w =hidden"},
        {"expect", "=detail n n w t"},
        {"expect", "=details n n"},
        {"expect", "=sql t t*"},
        {"expect", "=setting w w t"},
        {"expect", "=setting w w =absent"},
        {"expect", "=file t =exists"},
        {"expect", "=file t =absent"},
        {"expect", "=file t =same t"},
        {"expect", "=ended"},
        {"expect", "=running"},
        {"expect", "=fault n"},
        {"expect", "c t"},
        {"expect", "c =enabled"},
        {"expect", "c =disabled"},
        {"expect", "c =visible"},
        {"expect", "c =hidden"},
        {"expect", "c =focused"},
        {"expect", "c =readonly"},
        {"expect", "c =rows n"},
        {"expect", "c =columns t"},
        {"expect", "c =tip t"},
        {"expect", "c =node t t"},
        {"expect", "c =node t =bold"},
        {"expect", "c =node t =plain"},
        {"expect", "c =node t =absent"},
        {"expect", "c r n t"},
        {"expect", "c r n =tag t"},
        {"expect", "c r =key t"},
        {"expect", "c r =colour n"},
        {"expect", "c r =ticked"},
        {"expect", "c r =unticked"},
        {"expect", "c r =selected"},
        {"expect", "c r =bold"},
    };
    return table;
}

bool fits(const Word& word, std::string_view kind)
{
    if (kind.front() == '=') {
        return word.is(kind.substr(1));
    }
    switch (kind.front()) {
    case 'w':
        return true;
    case 'c': {
        constexpr std::array<std::string_view, 17> reserved{
            "caption", "open",    "closed", "loaded",  "box",  "nobox", "preview", "pages", "printed",
            "detail",  "details", "sql",    "setting", "file", "ended", "running", "fault"};
        return word.quoted || std::find(reserved.begin(), reserved.end(), word.text) == reserved.end();
    }
    case 't':
        return word.quoted;
    case 'n':
        return !word.quoted && parseWhole(word.text).has_value();
    case 'r':
        return word.quoted || parseWhole(word.text).has_value();
    case 'i':
        return !word.quoted && word.text.starts_with('#') && parseWhole(word.text.substr(1)).has_value();
    case 'd':
        return !word.quoted && Date::parse(word.text).has_value();
    case 'k':
        return parseKey(word.text).has_value();
    case 'a': {
        const std::string name = lower(word.text);
        return name == "ok" || name == "cancel" || name == "yes" || name == "no";
    }
    case 'h':
        return word.text.size() % 2 == 0 && word.text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    default:
        return false;
    }
}

bool fits(const Step& step, const std::string& shape)
{
    std::size_t at = 1;
    for (const std::string& kind : split(shape, ' ')) {
        if (kind.empty()) {
            continue;
        }
        if (kind == "*" || kind == "t*") {
            return std::all_of(step.words.begin() + static_cast<std::ptrdiff_t>(at), step.words.end(),
                               [&](const Word& word) { return kind == "*" || word.quoted; });
        }
        if (at >= step.words.size() || !fits(step.words[at], kind)) {
            return false;
        }
        ++at;
    }
    return at == step.words.size();
}

void check(const Step& step)
{
    const auto [from, to] = shapes().equal_range(step.verb());
    if (from == to || step.words.front().quoted) {
        throw NoSuchStep(step.line, "there is no step \"" + step.verb() + "\"");
    }
    if (std::none_of(from, to, [&](const auto& shape) { return fits(step, shape.second); })) {
        throw NoSuchStep(step.line, "these words do not fit the step \"" + step.verb() + "\"");
    }
}

constexpr int deepestFirm = 8;  // firms may name firms, but not in a circle

std::vector<Step> parseSteps(std::string_view text, const Firms& firms, int depth);

// The steps of the firms that a step names, all with its line.
void takeFirms(std::vector<Step>& steps, const Step& step, const Firms& firms, int depth)
{
    for (std::size_t at = 1; at < step.words.size(); ++at) {
        const std::string& name = step.words[at].text;
        const std::optional<std::string> text = firms && depth < deepestFirm ? firms(name) : std::nullopt;
        if (!text) {
            throw NoSuchStep(step.line, "there is no firm \"" + name + "\"");
        }
        try {
            for (Step& inner : parseSteps(*text, firms, depth + 1)) {
                inner.line = step.line;
                steps.push_back(std::move(inner));
            }
        } catch (const NoSuchStep& error) {
            throw NoSuchStep(step.line, "firm " + name + ", line " + std::to_string(error.line) + ": " + error.what());
        }
    }
}

std::vector<Step> parseSteps(std::string_view text, const Firms& firms, int depth)
{
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    std::vector<Step> steps;
    int number = 0;
    for (std::string line : split(text, '\n')) {
        ++number;
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const std::string bare = trim(line);
        if (bare.empty() || bare.starts_with('#')) {
            continue;
        }
        Step step{number, wordsOf(line, number)};
        if (step.words.empty()) {
            continue;
        }
        check(step);
        if (step.verb() == "firm") {
            takeFirms(steps, step, firms, depth);
        } else {
            steps.push_back(std::move(step));
        }
    }
    return steps;
}

}  // namespace

std::optional<long long> parseWhole(std::string_view text)
{
    long long value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    return failure == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::optional<KeyEvent> parseKey(std::string_view name)
{
    KeyEvent event;
    const auto prefix = [&](std::string_view modifier, bool& flag) {
        if (name.size() > modifier.size() && name.starts_with(modifier)) {
            flag = true;
            name.remove_prefix(modifier.size());
            return true;
        }
        return false;
    };
    while (prefix("Alt+", event.alt) || prefix("Ctrl+", event.ctrl) || prefix("Shift+", event.shift)) {
    }
    static const std::map<std::string, Key, std::less<>> named{
        {"Enter", Key::enter},       {"Tab", Key::tab},    {"Escape", Key::escape},       {"Up", Key::up},
        {"Down", Key::down},         {"Left", Key::left},  {"Right", Key::right},         {"Home", Key::home},
        {"End", Key::end},           {"Delete", Key::del}, {"Backspace", Key::backspace}, {"PageUp", Key::pageUp},
        {"PageDown", Key::pageDown},
    };
    if (const auto place = named.find(name); place != named.end()) {
        event.key = place->second;
        return event;
    }
    if (name == "Space") {
        event.key = Key::character;
        event.character = U' ';
        return event;
    }
    if (name.size() >= 2 && name.front() == 'F') {
        if (const auto number = parseWhole(name.substr(1)); number && *number >= 1 && *number <= 12) {
            event.key = static_cast<Key>(static_cast<int>(Key::f1) + static_cast<int>(*number) - 1);
            return event;
        }
    }
    const std::u32string characters = toCodePoints(name);
    if (characters.size() != 1) {
        return std::nullopt;
    }
    event.key = Key::character;
    event.character = characters.front();
    return event;
}

std::vector<Step> parseJourney(std::string_view text, const Firms& firms)
{
    return parseSteps(text, firms, 0);
}

}  // namespace bravona
