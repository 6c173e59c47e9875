#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/store/Recordset.h"

namespace bravona {

// What a column holds when its writer leaves it alone.
enum class Vuoto { solito, nullo };  // solito: 0 for numbers, amounts and yes/no, Null for texts and dates

struct Colonna {
    std::string_view nome;
    FieldType tipo;
    Vuoto vuoto = Vuoto::solito;
};

// A table of the archive. Constraints and triggers are in the words of the engine; a refusal of theirs is told as
// "number|text", which the store hands on as an Errore.
struct Tabella {
    std::string_view nome;
    std::vector<Colonna> colonne;
    std::vector<std::string_view> chiave;  // besides a counter, which is a key by itself
    std::vector<std::string> vincoli;
    std::vector<std::string> indici;  // lists of columns
    std::vector<std::string> regole;  // triggers, whole
};

const std::vector<Tabella>& tabelleArchivio();

}  // namespace bravona
