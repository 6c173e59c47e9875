#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/store/Connection.h"
#include "platform/values/Currency.h"
#include "platform/values/Date.h"

namespace bravona {

// One instalment of a document.
struct Rata {
    bool Saldata = false;
    std::optional<Date> Scadenza;
    std::optional<Currency> Avere, Dare;  // due to the firm, owed by it
    std::optional<Date> DataPagamento;

    friend bool operator==(const Rata&, const Rata&) = default;
};

// The instalments of a payment method (its key): equal ones, each rounded to the cent by itself, so that their sum may
// miss the total by some cents. None for the key 0; Errore 3021 for a method that is not there. Register 1 fills
// `Avere`, the others `Dare`.
[[nodiscard]] std::vector<Rata> calcolaPiano(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento,
                                             std::int32_t registro, Currency totale);

// How the archive keeps the mark "paid": "0" and "-1" as written here; whatever else reads as a number other than 0
// counts as paid.
[[nodiscard]] bool rataSaldata(const std::string& testo);
// A document's instalments in the archive, in the order of their dates.
[[nodiscard]] std::vector<Rata> leggiRate(Connection& cn, std::int32_t idDocumento);
void scriviRate(Connection& cn, std::int32_t idDocumento, std::int32_t registro, std::span<const Rata> rate);
// The same in place of those that are there.
void riscriviRate(Connection& cn, std::int32_t idDocumento, std::int32_t registro, std::span<const Rata> rate);

}  // namespace bravona
