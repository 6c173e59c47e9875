#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace bravona {

// A second program at the same archive, in a process of its own: made while this one has no transaction open. It does
// not wait for others and answers with the number of its failure, 0 without one.
class AltroProgramma {
public:
    explicit AltroProgramma(const std::string& archivio);
    ~AltroProgramma();
    AltroProgramma(const AltroProgramma&) = delete;
    AltroProgramma& operator=(const AltroProgramma&) = delete;

    std::uint32_t esegui(const std::string& istruzione) { return chiedi('e', istruzione); }
    std::uint32_t legge(const std::string& istruzione) { return chiedi('l', istruzione); }

private:
    [[nodiscard]] std::uint32_t attendi() const;
    std::uint32_t chiedi(char che, const std::string& istruzione) const;

    pid_t processo_ = 0;
    int a_ = -1;   // questions
    int da_ = -1;  // answers
};

}  // namespace bravona
