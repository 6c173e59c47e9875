#pragma once

#include <optional>
#include <string>
#include <utility>

namespace bravona {

// Width and height in pixels from the header of a GIF, PNG, BMP or JPEG file; nullopt for anything else.
std::optional<std::pair<int, int>> readPictureSize(const std::string& path);

}  // namespace bravona
