#include "support/journey/JourneyEyes.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/text/Text.h"
#include "support/journey/JourneyControls.h"
#include "support/journey/JourneyRunner.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

const char* iconName(MsgIcon icon)
{
    switch (icon) {
    case MsgIcon::information:
        return "information";
    case MsgIcon::question:
        return "question";
    case MsgIcon::critical:
        return "critical";
    case MsgIcon::exclamation:
        return "exclamation";
    case MsgIcon::none:
        break;
    }
    return "none";
}

const char* buttonsName(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::okCancel:
        return "OkCancel";
    case MsgButtons::yesNo:
        return "YesNo";
    case MsgButtons::ok:
        break;
    }
    return "Ok";
}

std::string bytesOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

const PageView* previewOf(const Form& form)
{
    for (const Form::Entry& entry : form.controls()) {
        if (entry.control->kind() == ControlKind::pageView) {
            return static_cast<const PageView*>(entry.control);
        }
    }
    return nullptr;
}

}  // namespace

std::string quotedText(const std::string& text)
{
    return "\"" + replaceAll(replaceAll(replaceAll(text, "\\", "\\\\"), "\"", "\\\""), "\n", "\\n") + "\"";
}

std::string journeyValue(const Value& value)
{
    struct Writer {
        std::string operator()(std::monostate) const { return "Null"; }
        std::string operator()(bool v) const { return v ? "True" : "False"; }
        std::string operator()(std::int64_t v) const { return std::to_string(v); }
        std::string operator()(double v) const
        {
            std::array<char, 32> buffer{};
            const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), v).ptr;
            return {buffer.data(), end};
        }
        std::string operator()(Currency v) const
        {
            const std::int64_t all = v.tenThousandths();
            const std::string digits =
                std::to_string(all < 0 ? 0 - static_cast<std::uint64_t>(all) : static_cast<std::uint64_t>(all));
            const std::string padded = digits.size() < 5 ? std::string(5 - digits.size(), '0') + digits : digits;
            return (all < 0 ? "-" : "") + padded.substr(0, padded.size() - 4) + "." + padded.substr(padded.size() - 4);
        }
        std::string operator()(Date v) const { return v.text(); }
        std::string operator()(const std::string& v) const { return v; }
    };
    return std::visit(Writer(), value.variant());
}

JourneyEyes::JourneyEyes(JourneySession& session, JourneyHost& host, const Step& step,
                         std::function<void(const std::string&)> tell)
    : session_(session),
      host_(host),
      words_(step.words.begin() + 1, step.words.end()),
      tell_(std::move(tell))
{}

long long JourneyEyes::number(std::size_t at) const
{
    const auto found = at < words_.size() ? parseWhole(words_[at].text) : std::nullopt;
    if (!found) {
        throw Impossible("a number is missing");
    }
    return *found;
}

void JourneyEyes::demand(bool holds, const std::string& expected, const std::string& actual) const
{
    if (!holds && !tell_) {
        throw Impossible("expected " + expected + ", there was " + actual);
    }
}

void JourneyEyes::compare(const std::string& what, const std::string& actual, const Word* expected) const
{
    if (tell_) {
        tell_(what + " " + quotedText(actual));
        return;
    }
    demand(comparable(actual) == comparable(expected->text), what + " " + quotedText(expected->text),
           quotedText(actual));
}

void JourneyEyes::compareExactly(const std::string& what, const std::string& actual, const Word* expected) const
{
    if (tell_) {
        tell_(what + " " + quotedText(actual));
        return;
    }
    demand(replaceAll(actual, "\r\n", "\n") == replaceAll(expected->text, "\r\n", "\n"),
           what + " " + quotedText(expected->text), quotedText(actual));
}

void JourneyEyes::compareNumber(const std::string& what, long long actual, const Word* expected) const
{
    if (tell_) {
        tell_(what + " " + std::to_string(actual));
        return;
    }
    demand(actual == *parseWhole(expected->text), what + " " + expected->text, std::to_string(actual));
}

void JourneyEyes::look()
{
    if (!lookAround()) {
        lookAtControl();
    }
}

// Whatever is no control. False when the words speak of one.
bool JourneyEyes::lookAround()
{
    if (words_.empty() || words_[0].quoted) {
        return false;
    }
    const std::string& subject = words_[0].text;
    const auto formNamed = [&]() -> Form* {
        return session_.started() && !session_.desktop().ended() ? session_.desktop().screens().find(words_.at(1).text)
                                                                 : nullptr;
    };
    const auto stateOf = [](const Form* form) {
        return form == nullptr || !form->loaded() ? "not loaded" : form->shown() ? "open" : "loaded, not shown";
    };
    if (subject == "caption") {
        compare("caption", frontForm(session_.desktop()).caption(), word(1));
    } else if ((subject == "open" || subject == "closed" || subject == "loaded") && words_.size() == 2) {
        Form* form = formNamed();
        const bool loaded = form != nullptr && form->loaded();
        const bool holds = subject == "open" ? loaded && form->shown() : subject == "closed" ? !loaded : loaded;
        if (tell_) {
            tell_(words_[1].text + " is " + stateOf(form));
        }
        demand(holds, words_[1].text + " " + subject, stateOf(form));
    } else if (subject == "box" || subject == "nobox") {
        box();
    } else if (subject == "fault") {
        fault();
    } else if (subject == "preview" || subject == "pages" || subject == "printed" || subject == "detail" ||
               subject == "details") {
        paper();
    } else if (subject == "sql") {
        archive();
    } else if (subject == "file" && words_.size() > 1 && words_[1].quoted) {
        files();
    } else if (subject == "setting" && words_.size() > 2) {
        setting();
    } else if (subject == "ended" || subject == "running") {
        const bool ended = session_.started() && session_.desktop().ended();
        const bool running = session_.started() && !ended;
        const std::string now = running ? "running" : ended ? "ended" : "not started";
        if (tell_) {
            tell_("the program is " + now);
        }
        demand(subject == "ended" ? ended : running, "the program " + subject, now);
    } else {
        return false;
    }
    return true;
}

void JourneyEyes::box()
{
    std::vector<Transcript::Box*> open;
    for (Transcript::Box& shown : session_.transcript.boxes) {
        if (!shown.expected) {
            open.push_back(&shown);
        }
    }
    const auto describe = [](const Transcript::Box& shown) {
        return std::string("box ") + quotedText(shown.box.title) + " " + quotedText(shown.box.text) + " " +
               iconName(shown.box.icon) + " " + buttonsName(shown.box.buttons);
    };
    if (tell_) {
        for (const Transcript::Box* shown : open) {
            tell_(describe(*shown));
        }
        if (open.empty()) {
            tell_("no box");
        }
        return;
    }
    // The report of an uncaught failure is expected as a fault; looked for as a box it counts as one.
    Transcript::Box* oldest = nullptr;
    const bool faultWanted = !open.empty() && open.front()->box.fault && words_.size() > 2 &&
                             comparable(open.front()->box.title) == comparable(words_[1].text);
    for (Transcript::Box* shown : open) {
        if (oldest == nullptr && (faultWanted || !shown->box.fault)) {
            oldest = shown;
        }
    }
    if (words_[0].text == "nobox") {
        demand(oldest == nullptr, "no box", oldest == nullptr ? "none" : describe(*oldest));
        return;
    }
    const bool begins = words_.size() > 3 && words_[2].is("begins");
    const std::string title = words_[1].text;
    const std::string text = words_[begins ? 3 : 2].text;
    std::string expected = "box " + quotedText(title) + (begins ? " begins " : " ") + quotedText(text);
    if (oldest == nullptr) {
        throw Impossible("expected " + expected + ", there was no box");
    }
    bool holds = comparable(oldest->box.title) == comparable(title);
    const std::string actual = comparable(oldest->box.text);
    holds = holds && (begins ? actual.starts_with(comparable(text)) : actual == comparable(text));
    for (std::size_t at = begins ? 4 : 3; at < words_.size(); ++at) {
        const std::string& wanted = words_[at].text;
        expected += " " + wanted;
        holds = holds && (equalFolded(wanted, iconName(oldest->box.icon)) ||
                          equalFolded(wanted, buttonsName(oldest->box.buttons)));
    }
    demand(holds, expected, describe(*oldest));
    oldest->expected = true;
}

void JourneyEyes::fault()
{
    for (Transcript::Box& shown : session_.transcript.boxes) {
        if (shown.expected || !shown.box.fault) {
            continue;
        }
        if (tell_) {
            tell_("fault " + quotedText(shown.box.text));
            continue;
        }
        demand(shown.box.number == static_cast<std::uint32_t>(number(1)), "fault " + words_[1].text,
               quotedText(shown.box.text));
        shown.expected = true;
        return;
    }
    demand(false, "fault " + (words_.size() > 1 ? words_[1].text : ""), "none");
}

void JourneyEyes::paper()
{
    const std::string& subject = words_[0].text;
    Form& form = frontForm(session_.desktop());
    const PageView* view = previewOf(form);
    if (view == nullptr || view->pages() == nullptr) {
        throw Impossible("expected a preview in front, there was " + form.name() + " " + quotedText(form.caption()));
    }
    const Pages& pages = *view->pages();
    if (subject == "preview") {
        compare("preview", form.caption(), word(1));
        return;
    }
    if (subject == "pages") {
        compareNumber("pages", static_cast<long long>(pages.pages.size()), word(1));
        return;
    }
    const long long wanted = number(1);
    if (wanted < 1 || static_cast<std::size_t>(wanted) > pages.pages.size()) {
        throw Impossible("there is no page " + words_[1].text + " of " + std::to_string(pages.pages.size()));
    }
    const Page& page = pages.pages[static_cast<std::size_t>(wanted - 1)];
    const std::string place = "on page " + words_[1].text + " ";
    if (subject == "details") {
        compareNumber(place + "detail rows", page.detailRows, word(2));
        return;
    }
    if (subject == "detail") {
        const long long row = number(2);
        if (row < 1 || row > page.detailRows || words_.size() < 4) {
            throw Impossible(place + "there are " + std::to_string(page.detailRows) + " detail rows");
        }
        const auto text = detailText(page, static_cast<int>(row) - 1, words_[3].text);
        if (!text) {
            throw Impossible(place + "the detail row has no " + words_[3].text);
        }
        compareExactly(place + "row " + words_[2].text + " " + words_[3].text, *text, word(4));
        return;
    }
    if (words_.size() < 3) {
        throw Impossible("a name is missing");
    }
    const auto text = printedText(page, words_[2].text);
    const bool hidden = !text && isHidden(page, words_[2].text);
    if (has(3, "hidden")) {
        demand(hidden, place + words_[2].text + " hidden", text ? quotedText(*text) : "no such control");
    } else if (!text) {
        demand(false, place + words_[2].text + (words_.size() > 3 ? " " + quotedText(words_[3].text) : ""),
               hidden ? "hidden" : "no such control");
        if (tell_) {
            tell_(place + words_[2].text + (hidden ? " hidden" : " is not there"));
        }
    } else {
        compareExactly(place + words_[2].text, *text, word(3));
    }
}

void JourneyEyes::archive()
{
    std::vector<std::string> rows;
    session_.withArchive([&](Connection& cn) {
        Recordset set = cn.open(words_.at(1).text);
        for (std::size_t row = 0; row < set.recordCount(); ++row) {
            std::string line;
            for (std::size_t column = 0; column < set.columns().size(); ++column) {
                line += (column == 0 ? "" : "|") + journeyValue(set.valueAt(row, column));
            }
            rows.push_back(std::move(line));
        }
    });
    if (tell_) {
        for (const std::string& row : rows) {
            tell_(quotedText(row));
        }
        tell_(std::to_string(rows.size()) + " rows");
        return;
    }
    std::string expected;
    std::string actual;
    bool holds = rows.size() == words_.size() - 2;
    for (std::size_t at = 2; at < words_.size(); ++at) {
        expected += " " + quotedText(words_[at].text);
        holds = holds && at - 2 < rows.size() &&
                replaceAll(rows[at - 2], "\r\n", "\n") == replaceAll(words_[at].text, "\r\n", "\n");
    }
    for (const std::string& row : rows) {
        actual += " " + quotedText(row);
    }
    demand(holds, "the rows" + (expected.empty() ? " none" : expected), actual.empty() ? "none" : actual.substr(1));
}

void JourneyEyes::files()
{
    session_.releaseArchive();
    const fs::path path = session_.folder.resolve(words_[1].text);
    const bool there = fs::exists(path);
    if (tell_) {
        tell_("file " + words_[1].text +
              (!there                   ? " is absent"
               : fs::is_directory(path) ? " is a folder"
                                        : ", " + std::to_string(fs::file_size(path)) + " bytes"));
        return;
    }
    if (has(2, "same")) {
        const fs::path other = session_.folder.resolve(words_.at(3).text);
        demand(there && fs::exists(other), "two files",
               there ? words_[3].text + " absent" : words_[1].text + " absent");
        const std::string mine = bytesOf(path);
        const std::string others = bytesOf(other);
        demand(mine == others, "the same bytes",
               std::to_string(mine.size()) + " and " + std::to_string(others.size()) + " bytes that differ");
        return;
    }
    demand(there == has(2, "exists"), words_[1].text + " " + words_.at(2).text, there ? "it exists" : "it is absent");
}

void JourneyEyes::setting()
{
    const auto value = session_.settings.find(words_[1].text, words_[2].text);
    const std::string what = "setting " + words_[1].text + " " + words_[2].text;
    if (!value) {
        if (tell_) {
            tell_(what + " absent");
        }
        demand(has(3, "absent"), what + (words_.size() > 3 ? " " + quotedText(words_[3].text) : ""), "absent");
        return;
    }
    if (has(3, "absent")) {
        demand(false, what + " absent", quotedText(*value));
        return;
    }
    compareExactly(what, *value, word(3));
}

void JourneyRunner::expect(const Step& step)
{
    JourneyEyes(*session_, host_, step).look();
}

void JourneyRunner::show(const Step& step)
{
    const auto tell = [&](const std::string& what) {
        if (options_.print) {
            options_.print(std::to_string(step.line) + ": " + what);
        }
    };
    try {
        JourneyEyes(*session_, host_, step, tell).look();
    } catch (const std::exception& error) {
        tell(error.what());
    }
}

}  // namespace bravona
