#pragma once

#include <QIcon>
#include <QPixmap>
#include <optional>
#include <string>
#include <utility>

namespace bravona {

// A picture file (BMP, GIF, JPEG, PNG), or a built-in picture by its name ("bravona"); null when it cannot be read.
QPixmap readPicture(const std::string& path);
std::optional<std::pair<int, int>> pictureFileSize(const std::string& path);  // pixels
// The program's mark in all sizes.
QIcon programIcon();

}  // namespace bravona
