#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace bravona {

/// `encode FILE [TO]`, `decode FILE [TO]` or `info FILE`: packs, unpacks or describes and checks a backup. Returns 0,
/// or 1 after one line on `errori`; the target then holds what it held before, or the line says that only the answer
/// could not be written. Without TO the name is made from FILE, and a file that has that name already is left alone.
int bravonaBk(std::span<const std::string> argomenti, std::ostream& uscita, std::ostream& errori);

}  // namespace bravona
