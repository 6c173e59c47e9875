#pragma once

#include <string_view>

#include "platform/store/Connection.h"

namespace bravona {

// The password of every archive.
inline constexpr std::string_view passwordArchivio = "zelmar";

// Makes the tables, indices and rules of the archive in an empty file, all or nothing.
void creaSchema(Connection& cn);

// Makes the tables that came to the structure after the archive was made, and that it lacks.
void completaSchema(Connection& cn);

// The rows without which the program does not start; nothing else.
void semiMinimi(Connection& cn);

// The rows of the archive as delivered: what lets an Italian firm start at once.
void semiConsegna(Connection& cn);

}  // namespace bravona
