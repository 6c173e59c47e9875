#pragma once

#include "platform/files/Bytes.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bravona {

// How a file is replaced. What is owner-only is so from its first byte on, whatever the user's mask, also where the
// target was not. The target's bytes are kept under the first name of `earlier`, whose file moves to the second and so
// on; the last one's goes. That happens only once the new bytes are on the disk.
struct Replacing {
    bool ownerOnly = false;
    std::vector<std::string> earlier;
};

// The file service: every write of the program outside the archive goes through it. Failures are Errore 53 (missing),
// 61 (no room), 70 (no permission), 71 (drive not ready, also a folder to write into that is gone), 75 (path error: a
// directory, an unreadable file); the description names the path.
// A path may be written with "\" between folders; it means the machine's separator.
class Files {
public:
    [[nodiscard]] bool exists(const std::string& path) const;  // a file
    [[nodiscard]] bool folderExists(const std::string& path) const;
    [[nodiscard]] std::uint64_t size(const std::string& path) const;
    [[nodiscard]] Bytes read(const std::string& path) const;
    // Writes beside the target, flushes, renames over it and flushes the folder: the target holds the old bytes or the
    // new, also when two write it at a time. A link is followed: the file that it points to is replaced. The target's
    // permissions are kept where the file system keeps any. After a failure nothing lies beside it; what a kill left
    // there goes at the next replacement.
    void replace(const std::string& path, const Bytes& bytes, const Replacing& how = {});
    // Copies as `replace` writes, a piece at a time.
    void copy(const std::string& from, const std::string& to, const Replacing& how = {});
    // Takes a file, or a folder, from everybody but its owner; false where that cannot be done.
    static bool makeOwnerOnly(const std::string& path);
    // Called between the pieces of a long read, write or copy, each of which has then reached the disk, so that windows
    // can be painted meanwhile. Touches no file; what it throws gives the operation up.
    std::function<void()> betweenPieces;
    // An existing file of the new name is replaced; a link is renamed itself.
    void rename(const std::string& from, const std::string& to);
    void remove(const std::string& path);      // Errore 53 when it is missing; a link is removed itself
    void makeFolder(const std::string& path);  // with its parents; no failure when it exists

    // The next change of `path` (the file itself, or the link that leads to it) fails with `numero`: for `replace` and
    // `copy` after the bytes are written and before they take their place (tests and journeys).
    void failNextWrite(const std::string& path, std::uint32_t numero);

    // The file at the end of the links, which need not exist. Errore 75 when they lead in a circle.
    static std::string behindLinks(const std::string& path);
    // `\` and `/` to the machine's separator.
    static std::string native(std::string_view path);

private:
    void replaceWith(const std::string& path, const Replacing& how, const std::function<void(int)>& write);
    void checkFault(const std::string& path);
    void writeAll(int fd, const std::uint8_t* bytes, std::size_t count, const std::string& path) const;

    std::map<std::string, std::uint32_t> faults_;  // by absolute path
};

}  // namespace bravona
