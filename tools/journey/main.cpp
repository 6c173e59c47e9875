#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "journey/JourneyFiles.h"
#include "journey/QtJourneyHost.h"
#include "support/journey/FirmFiles.h"
#include "support/journey/JourneyRunner.h"
#include "support/journey/ProvaHost.h"

namespace {

using namespace bravona;

constexpr int allPassed = 0;
constexpr int someFailed = 1;
constexpr int notReadable = 2;

std::unique_ptr<JourneyHost> makeHost(const Arguments& arguments, int& argc, char** argv)
{
    if (arguments.qt) {
        return makeQtHost(argc, argv, arguments.dark);
    }
    return std::make_unique<ProvaHost>();
}

}  // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    if (!readArguments(argc, argv, arguments)) {
        std::cerr << "bravona_journey [--host prova|qt] [--keep DIR] [--pictures DIR] [--dark] FILE|FOLDER ...\n";
        return notReadable;
    }
    arguments.options.print = [](const std::string& what) { std::cout << what << std::endl; };
    int status = allPassed;
    std::vector<JourneyFile> files;
    for (const std::string& place : arguments.places) {
        if (!collectJourneys(place, files)) {
            std::cout << place << " cannot be read" << std::endl;
            status = notReadable;
        }
    }
    const std::unique_ptr<JourneyHost> host = makeHost(arguments, argc, argv);
    if (host == nullptr) {
        std::cerr << "this build has no real windows\n";
        return notReadable;
    }
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
            const JourneyResult result = runner.run(file.name, parseJourney(text, firmsFor(file.path)));
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
