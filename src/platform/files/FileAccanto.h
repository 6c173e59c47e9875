#pragma once

#include <filesystem>
#include <string>

namespace bravona {

// The file that is written beside a target and then takes its place; gone with the scope unless it did. Its name is its
// own, so that two writers of one target do not meet, and a lock is held on it, by which what a kill has left is told
// from what another writer has not finished: such leftovers of the target go first.
class FileAccanto {
public:
    // `codice` tells, as errno does, why it could not be made; 0 when it was.
    FileAccanto(const std::filesystem::path& bersaglio, bool soloDelProprietario);
    ~FileAccanto();
    FileAccanto(const FileAccanto&) = delete;
    FileAccanto& operator=(const FileAccanto&) = delete;

    [[nodiscard]] int codice() const { return codice_; }
    [[nodiscard]] int fd() const { return fd_; }
    // Both answer as errno does, 0 when done. Some file systems report a failed write only when the file is closed.
    int chiudi();
    int alPostoDi(const std::string& bersaglio);

private:
    bool apri(bool soloDelProprietario);

    std::string percorso_;
    int fd_ = -1;
    int guardia_ = -1;  // holds the lock until the scope ends, also behind `chiudi`
    int codice_ = 0;
    bool daTogliere_ = false;
};

}  // namespace bravona
