#pragma once

#include <cstdint>
#include <string_view>

#include "platform/store/Connection.h"

namespace bravona {

// The password of every archive.
inline constexpr std::string_view passwordArchivio = "zelmar";

// Makes the tables, indices and rules of the archive in an empty file, all or nothing.
void creaSchema(Connection& cn);

// Makes what came to the structure after the archive was made and it lacks: tables, and quotations that count their
// keys apart. Writes nothing where all is there.
void completaSchema(Connection& cn);
// Quotations count their keys from here on, so that the instalments of a quotation never meet an invoice's.
inline constexpr std::int32_t primaChiavePreventivi = 1'000'000'001;
// The rows without which the program does not start; nothing else.
void semiMinimi(Connection& cn);

// The rows of the archive as delivered: what lets an Italian firm start at once.
void semiConsegna(Connection& cn);

}  // namespace bravona
