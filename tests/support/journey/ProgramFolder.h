#pragma once

#include <filesystem>
#include <string>

namespace bravona {

enum class Delivery {
    bare,      // the smallest archive
    delivered  // the archive as it is shipped
};

// A program folder of its own: Database/DBBVEURO.mdb and the link dbbveuro.mdb to it. Gone with the object unless it is
// to be kept. Archives are made once a process and copied.
class ProgramFolder {
public:
    // Empty: somewhere among the temporary files.
    explicit ProgramFolder(const std::filesystem::path& keptAt = {});
    ~ProgramFolder();
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    // Everything that is there goes first.
    void fill(Delivery delivery);
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path archive() const { return path_ / "Database" / "DBBVEURO.mdb"; }
    // A path of a journey: relative ones are under this folder, `\` and `/` both part folders.
    [[nodiscard]] std::filesystem::path resolve(const std::string& path) const;

private:
    std::filesystem::path path_;
    bool kept_;
};

}  // namespace bravona
