#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "session/Sessione.h"

namespace bravona {

// What the searches answer instead of a key.
namespace ricerca {
inline constexpr std::int32_t nessunRecord = -1;
inline constexpr std::int32_t annullata = -2;

// A column of a pick-list and the field that fills it.
struct Colonna {
    const char* titolo;
    const char* campo;
    int larghezza;  // twips
};

// A search once its statement is made.
struct Richiesta {
    std::string istruzione;
    const char* chiave;  // field of the key
    std::span<const Colonna> colonne;
    const char* schermata;         // the pick-list
    const std::int32_t& risposta;  // where it leaves the choice
};
// No row, the only row's key, or the choice from the pick-list.
std::int32_t esegui(Sessione& sessione, const Richiesta& richiesta);
}  // namespace ricerca

}  // namespace bravona
