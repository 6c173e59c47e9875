#pragma once

#include <cstdint>
#include <functional>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bravona {

using Bytes = std::vector<std::uint8_t>;

// The file service: every write of the program outside the archive goes through it. Failures are Errore 53 (missing),
// 61 (no room), 70 (no permission), 71 (drive not ready), 75 (path error: a directory, an unreadable file).
// A path may be written with "\" between folders; it means the machine's separator.
class Files {
public:
    virtual ~Files() = default;

    [[nodiscard]] bool exists(const std::string& path) const;       // a file
    [[nodiscard]] bool folderExists(const std::string& path) const;
    [[nodiscard]] std::uint64_t size(const std::string& path) const;
    [[nodiscard]] Bytes read(const std::string& path) const;
    // Writes beside the target, flushes, renames over it and flushes the folder: the target holds the old bytes or the new.
    // A link is followed: the file that it points to is replaced.
    void replace(const std::string& path, const Bytes& bytes);
    // Copies through `replace`.
    void copy(const std::string& from, const std::string& to);
    void rename(const std::string& from, const std::string& to);
    void remove(const std::string& path); // Errore 53 when it is missing
    void makeFolder(const std::string& path); // with its parents; no failure when it exists

    // The next write to `path` fails with `numero` (tests and journeys).
    void failNextWrite(const std::string& path, std::uint32_t numero);

    // `\` and `/` to the machine's separator.
    static std::string native(std::string_view path);

private:
    void checkFault(const std::string& path);
    std::map<std::string, std::uint32_t> faults_;
};

} // namespace bravona
