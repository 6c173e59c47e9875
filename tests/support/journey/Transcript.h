#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/reports/Pages.h"
#include "platform/windowing/Desktop.h"

namespace bravona {

// What a session showed and handed out, and the answers that the person has ready. Outlives a restart of the program.
struct Transcript {
    struct Box {
        MessageBox box;
        MsgAnswer answer = MsgAnswer::ok;
        bool expected = false;  // a step has looked at it
    };
    struct Paper {
        std::string title;
        std::string path;  // of a PDF; empty: printed
        Pages pages;
    };

    std::vector<Box> boxes;
    std::vector<Paper> papers;
    std::deque<MsgAnswer> answers;
    std::deque<std::string> files;  // an empty one cancels
    std::deque<std::optional<Colour>> colours;
    std::vector<std::string> impossible;  // answers that no button of their box gives

    // Keeps the box and takes the answer that stands first in the queue, or the default button. A box with OK alone
    // leaves an answer that it does not offer to the next one.
    MsgAnswer answer(const MessageBox& box);
    // The answer for a file or folder dialog; nullopt cancels, as does a dialog that nobody expected.
    std::optional<std::string> file();
    std::optional<Colour> colour();
};

}  // namespace bravona
