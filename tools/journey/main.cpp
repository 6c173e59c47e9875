#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "journey/JourneyHosts.h"
#include "support/journey/JourneyRunner.h"
#include "support/journey/ProvaHost.h"

namespace {

namespace fs = std::filesystem;
using namespace bravona;

constexpr int allPassed = 0;
constexpr int someFailed = 1;
constexpr int notReadable = 2;

struct Arguments {
    bool qt = false;
    JourneyOptions options;
    std::vector<std::string> places;
};

struct JourneyFile {
    std::string name;
    fs::path path;  // "-": standard input
};

bool read(int argc, char** argv, Arguments& arguments)
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
        } else if (word.size() > 1 && word.starts_with('-')) {
            return false;
        } else {
            arguments.places.push_back(word);
        }
    }
    return !arguments.places.empty();
}

// The journeys of a file or folder, in the order of their names.
bool collect(const std::string& place, std::vector<JourneyFile>& files)
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

}  // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (!read(argc, argv, arguments)) {
        std::cerr << "bravona_journey [--host prova|qt] [--keep DIR] [--pictures DIR] FILE|FOLDER ...\n";
        return notReadable;
    }
    arguments.options.print = [](const std::string& what) { std::cout << what << std::endl; };
    int status = allPassed;
    std::vector<JourneyFile> files;
    for (const std::string& place : arguments.places) {
        if (!collect(place, files)) {
            std::cout << place << " cannot be read" << std::endl;
            status = notReadable;
        }
    }
    const std::unique_ptr<JourneyHost> host =
        arguments.qt ? makeQtHost(argc, argv) : std::make_unique<ProvaHost>();
    JourneyRunner runner(*host, arguments.options);
    int passed = 0;
    int failed = 0;
    for (const JourneyFile& file : files) {
        std::string text;
        if (!readText(file.path, text)) {
            std::cout << "FAILED " << file.name << ":0 the file cannot be read" << std::endl;
            status = notReadable;
            ++failed;
            continue;
        }
        try {
            const JourneyResult result = runner.run(file.name, parseJourney(text));
            if (result.passed) {
                ++passed;
                std::cout << "ok " << file.name << std::endl;
            } else {
                ++failed;
                status = std::max(status, someFailed);
                std::cout << "FAILED " << file.name << ":" << result.line << " " << result.reason << std::endl;
            }
        } catch (const NoSuchStep& error) {
            ++failed;
            status = notReadable;
            std::cout << "FAILED " << file.name << ":" << error.line << " " << error.what() << std::endl;
        }
    }
    std::cout << passed << " passed, " << failed << " failed" << std::endl;
    return status;
}
