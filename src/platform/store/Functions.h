#pragma once

#include <array>
#include <cstddef>

#include <sqlcipher/sqlite3.h>

#include "platform/store/Rational.h"

namespace bravona {

// What the translated statements ask of the engine beyond its own: the order of texts, LIKE, exact arithmetic of money,
// dates, formats.
void registerFunctions(sqlite3* db);

// The order of texts in the archive, by name in the declarations of its columns.
inline constexpr const char* collationName = "ITALIANO";

// A fraction as the engine carries it between functions.
using RationalBytes = std::array<std::byte, 2 * sizeof(Int128)>;
RationalBytes toBytes(const Rational& value);

}  // namespace bravona
