#include "journey/JourneyFiles.h"

#include <algorithm>

namespace bravona {

namespace fs = std::filesystem;

bool readArguments(int argc, char** argv, Arguments& arguments)
{
    for (int at = 1; at < argc; ++at) {
        const std::string word = argv[at];
        const bool more = at + 1 < argc;
        if (word == "--host" && more) {
            const std::string host = argv[++at];
            if (host != "prova" && host != "qt") {
                return false;
            }
            arguments.qt = host == "qt";
        } else if (word == "--keep" && more) {
            arguments.options.keepAt = fs::absolute(argv[++at]);
        } else if (word == "--pictures" && more) {
            arguments.options.picturesAt = fs::absolute(argv[++at]);
        } else if (word == "--dark") {
            arguments.dark = true;
        } else if (word.size() > 1 && word.starts_with('-')) {
            return false;
        } else {
            arguments.places.push_back(word);
        }
    }
    return !arguments.places.empty();
}

bool collectJourneys(const std::string& place, std::vector<JourneyFile>& files)
{
    if (place == "-") {
        files.push_back({"-", place});
        return true;
    }
    std::error_code failure;
    if (!fs::is_directory(place, failure)) {
        files.push_back({fs::path(place).stem().string(), place});
        return fs::is_regular_file(place, failure);
    }
    std::vector<JourneyFile> found;
    for (const auto& entry : fs::recursive_directory_iterator(place, failure)) {
        if (entry.path().extension() == ".journey") {
            fs::path name = entry.path().lexically_relative(place);
            found.push_back({name.replace_extension().generic_string(), entry.path()});
        }
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    files.insert(files.end(), found.begin(), found.end());
    return !failure;
}

}  // namespace bravona
