#pragma once

#include <string>
#include <vector>

#include "session/Sessione.h"

namespace bravona {

inline constexpr int primoArticolo = 1000;

// Articles from that key on, each with a price in list 2. `ogni`: the code of one in so many begins with "RARO".
void aggiungiArticoli(Sessione& sessione, int quanti, int ogni);

// The engine's statement as it runs for a command, every value of every row read into a text.
std::vector<std::vector<std::string>> nuda(Connection& cn, const std::string& istruzione);

}  // namespace bravona
