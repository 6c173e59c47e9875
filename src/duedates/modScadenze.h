#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/store/Connection.h"
#include "platform/values/Date.h"

namespace bravona {

// When the instalments of a payment method fall due.
struct GiorniPagamento {
    static constexpr int rateMassime = 6;
    std::array<std::optional<std::int32_t>, rateMassime> giorni;  // from the reference date; none: no such instalment
    bool dallaData = true;  // the reference date is the document's; else the last day of its month
    bool esiste = false;    // the method is in the archive

    // Count of the days that are there and not 0; 1 when there is none.
    [[nodiscard]] std::int16_t numeroRate() const;
    // Due date of the instalment, 1 to 6; none where the method has none. Errore 3021 for an unknown method.
    [[nodiscard]] std::optional<Date> scadenza(Date dataDocumento, int rata) const;
};
[[nodiscard]] GiorniPagamento leggiGiorniPagamento(Connection& cn, std::int32_t idModalitaPagamento);

// The same for one question: the count, and a due date "dd/mm/yyyy", empty when there is none. Errore 3021 for an
// unknown method.
std::int16_t NumeroRate(Connection& cn, std::int32_t idModalitaPagamento);
std::string DataScadenzaRata(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento, int rata);
// The last day of the date's month.
Date FineMese(Date data);

}  // namespace bravona
