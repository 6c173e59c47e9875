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
// The firms of the nearest folder `firms` from that journey upwards, one a file NAME.firm; for standard input from the
// working folder upwards.
Firms firmsFor(const std::filesystem::path& journey);
// The whole text of a file or, for "-", of standard input.
bool readText(const std::filesystem::path& path, std::string& text);

}  // namespace bravona
