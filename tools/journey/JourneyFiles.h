#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "support/journey/JourneyRunner.h"

namespace bravona {

struct Arguments {
    bool qt = false;
    bool dark = false;  // the real windows in a dark palette
    JourneyOptions options;
    std::vector<std::string> places;
};

struct JourneyFile {
    std::string name;
    std::filesystem::path path;  // "-": standard input
};

// Reads the command line; false when it is not understood.
bool readArguments(int argc, char** argv, Arguments& arguments);
// Adds the journeys of a file or folder, in the order of their names; false when it cannot be read.
bool collectJourneys(const std::string& place, std::vector<JourneyFile>& files);

}  // namespace bravona
