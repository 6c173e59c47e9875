#include "support/ContaTasti.h"

#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

namespace bravona {

int contaTasti(const std::filesystem::path& journey)
{
    constexpr std::array<const char*, 6> senzaMani{"firm ", "year ", "sql ", "start", "expect ", "#"};
    std::ifstream file(journey);
    std::string riga;
    int tasti = 0;
    while (std::getline(file, riga)) {
        if (riga.starts_with("key ")) {
            ++tasti;
        } else if (riga.starts_with("type \"")) {
            tasti += static_cast<int>(riga.size() - std::string_view("type \"\"").size());
        } else {
            bool nota = riga.empty();
            for (const char* inizio : senzaMani) {
                nota = nota || riga.starts_with(inizio);
            }
            if (!nota) {
                throw std::runtime_error("not by keys alone: " + riga);
            }
        }
    }
    return tasti;
}

}  // namespace bravona
