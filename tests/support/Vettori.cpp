#include "support/Vettori.h"

#include "support/Percorsi.h"

#include <fstream>
#include <stdexcept>

namespace bravona {

std::vector<nlohmann::json> casi(const std::string& file, std::string_view routine)
{
    std::ifstream ingresso(cartellaTest() / "vectors" / file);
    const nlohmann::json tutto = nlohmann::json::parse(ingresso);
    std::vector<nlohmann::json> scelti;
    for (const auto& caso : tutto.at("cases")) {
        if (routine.empty() || caso.value("routine", std::string()) == routine) {
            scelti.push_back(caso);
        }
    }
    if (scelti.empty()) {
        throw std::runtime_error("no case of " + std::string(routine) + " in " + file);
    }
    return scelti;
}

}  // namespace bravona
