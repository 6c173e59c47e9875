#include "support/journey/FirmFiles.h"

#include <fstream>
#include <iostream>
#include <iterator>

namespace bravona {

namespace fs = std::filesystem;

Firms firmsFor(const fs::path& journey)
{
    fs::path folder = journey == "-" ? fs::current_path() : fs::absolute(journey).parent_path();
    while (!fs::is_directory(folder / "firms") && folder.has_relative_path()) {
        folder = folder.parent_path();
    }
    return [folder = folder / "firms"](const std::string& name) {
        std::string text;
        const bool found = fs::path(name).filename() == name && readText(folder / (name + ".firm"), text);
        return found ? std::optional(text) : std::nullopt;
    };
}

bool readText(const fs::path& path, std::string& text)
{
    if (path == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
        return true;
    }
    std::ifstream file(path, std::ios::binary);
    text.assign(std::istreambuf_iterator<char>(file), {});
    return file.good() || file.eof();
}

}  // namespace bravona
