#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// One item a VAT code, "A - 20%", with its id as data.
void CaricaComboIva(Sessione& sessione, ComboBox& combo);
// The eight units, with their place from 1 as data.
void CaricaUnitaMisura(ComboBox& combo);

bool EsisteCodiceIva(Sessione& sessione, std::int32_t id);
// Whether another article has the code; -1 for an article that is not yet stored.
bool EsisteCodiceArticolo(Sessione& sessione, const std::string& codice, std::int32_t id);

inline constexpr std::size_t numeroListini = 10;
// Rewrites the article's prices from the ten boxes, an empty one as "0,00": all of them or, false after having told the
// failure, none. A box that still reads as in `comeMostrati` keeps the price that the archive has now.
bool RegistraPrezziArticolo(Sessione& sessione, std::int32_t idArticolo, std::span<TextBox, numeroListini> txtEuro,
                            std::span<const std::string, numeroListini> comeMostrati);
void CaricaPrezziArticolo(Sessione& sessione, std::int32_t idArticolo, std::span<TextBox, numeroListini> txtEuro);

// The article's price in the list, "1.234,50", "0,00" when it has none. Empty after a failure, which was told to the
// person.
std::optional<std::string> PrezzoArticolo(Sessione& sessione, std::int32_t idArticolo, std::int32_t idListino);
// The same into the price box of a row, which a failure leaves alone.
void RichiamaPrezzoArticolo(Sessione& sessione, std::int32_t idArticolo, std::int32_t idListino, TextBox& txtPrezzo);

}  // namespace bravona
