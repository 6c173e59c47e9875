#pragma once

#include <string_view>

#include "platform/store/Tokenizer.h"

namespace bravona {

// "SHAPE {parent} AS P APPEND ({child} AS C RELATE a TO b) AS Child": two queries and what relates them.
struct ShapeText {
    std::string_view parent;
    std::string_view child;
    std::string_view parentColumn;
    std::string_view childColumn;
    std::string_view name;  // of the chapter
};

// Throws Errore 3450, with the place, for what is not understood.
ShapeText parseShape(const Tokens& tokens);

}  // namespace bravona
