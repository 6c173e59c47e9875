#pragma once

#include <cstdint>
#include <string>

#include "Caso.h"

namespace bravona {

struct Comune {
    const char* nome;
    const char* provincia;
    const char* cap;
};

// Names of a believable firm's world. `numero` keeps articles apart.
std::string nomeDitta(Caso& caso);
std::string via(Caso& caso);
const Comune& comune(Caso& caso);
std::string telefono(Caso& caso);
std::string partitaIva(Caso& caso);  // eleven digits with a right check digit
std::string codiceArticolo(Caso& caso, int numero);
std::string descrizioneArticolo(Caso& caso, int numero);

}  // namespace bravona
