#include "support/journey/Transcript.h"

#include <algorithm>

namespace bravona {

MsgAnswer Transcript::answer(const MessageBox& box)
{
    std::vector<MsgAnswer> offered{MsgAnswer::ok};
    if (box.buttons == MsgButtons::okCancel) {
        offered = {MsgAnswer::ok, MsgAnswer::cancel};
    } else if (box.buttons == MsgButtons::yesNo) {
        offered = {MsgAnswer::yes, MsgAnswer::no};
    }
    MsgAnswer given = box.lastIsDefault ? offered.back() : offered.front();
    if (!answers.empty()) {
        const MsgAnswer wanted = answers.front();
        if (std::find(offered.begin(), offered.end(), wanted) != offered.end()) {
            given = wanted;
            answers.pop_front();
        } else if (offered.size() > 1) {
            impossible.push_back("the box \"" + box.title + "\" has no such button as the answer names: " + box.text);
            answers.pop_front();
        }
    }
    boxes.push_back({box, given, false});
    return given;
}

std::optional<std::string> Transcript::file()
{
    if (files.empty()) {
        return std::nullopt;
    }
    const std::string path = files.front();
    files.pop_front();
    return path.empty() ? std::nullopt : std::optional(path);
}

std::optional<Colour> Transcript::colour()
{
    if (colours.empty()) {
        return std::nullopt;
    }
    const std::optional<Colour> chosen = colours.front();
    colours.pop_front();
    return chosen;
}

}  // namespace bravona
