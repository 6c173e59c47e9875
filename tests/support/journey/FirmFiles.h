#pragma once

#include <filesystem>
#include <string>

#include "support/journey/JourneyText.h"

namespace bravona {

// The firms of the nearest folder `firms` from that journey upwards, one a file NAME.firm; for standard input from the
// working folder upwards.
Firms firmsFor(const std::filesystem::path& journey);
// The whole text of a file or, for "-", of standard input.
bool readText(const std::filesystem::path& path, std::string& text);

}  // namespace bravona
