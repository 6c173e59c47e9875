#pragma once

#include <cstdint>
#include <string>

#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// The payment methods in the order of their keys, the key as item data, added to what the list holds.
void CaricaListaPagamenti(Sessione& sessione, ListBox& lista);
void CaricaListaPagamenti(Sessione& sessione, ComboBox& lista);
// The method's name; the empty text for one that is not there.
std::string NomePagamento(Sessione& sessione, std::int32_t id);
std::string DescrizioneModalitaPagamento(Sessione& sessione, std::int32_t id);
// Whether a party or a document has it.
bool ModalitaPagamentoUtilizzata(Sessione& sessione, std::int32_t id);

}  // namespace bravona
