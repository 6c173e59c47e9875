#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/store/Connection.h"
#include "platform/values/Appearance.h"
#include "platform/values/Currency.h"
#include "platform/values/Date.h"
#include "platform/windowing/Grids.h"

namespace bravona {

// The instalments of the archive as the ledger lists, edits and prints them.

namespace colonne {
inline constexpr int descrizione = 6;
inline constexpr int numeroFattura = 7;
inline constexpr int dataDocumento = 8;
inline constexpr int cliente = 9;
inline constexpr int modalita = 10;
inline constexpr int id = 11;
inline constexpr int registro = 12;
inline constexpr int scadenzario = 13;  // their number
}  // namespace colonne

// The texts of a line, by column, and what they were made from.
struct VoceScadenzario {
    std::int32_t ID = 0;
    bool Saldata = false;
    Date Scadenza;
    Currency Avere, Dare;
    std::vector<std::string> testi;
};

enum class Urgenza { pagata, scaduta, inScadenza, futura };

// Which instalments of the documents found are listed.
struct SceltaScadenze {
    bool saldate = false, nonSaldate = true;
    bool escludiNonScadute = true;  // those due after the days of warning
    bool inScadenza = true;         // those due within them
    Date oggi;
    std::int16_t giorni = 0;  // of warning

    [[nodiscard]] Urgenza urgenza(const VoceScadenzario& voce) const;
    [[nodiscard]] bool comprende(const VoceScadenzario& voce) const;
};

struct AspettoScadenza {
    std::optional<Colour> colore;  // none: the grid's own
    FlexGrid::Sign segno;
};
[[nodiscard]] AspettoScadenza aspetto(Urgenza urgenza);

// `documenti`: a set with the chapter "ChildCMD" of their instalments. One without a due date is in no list.
[[nodiscard]] std::vector<VoceScadenzario> leggiScadenze(Recordset& documenti, const SceltaScadenze& scelta);

// "Avere" less "Dare" as amount text; both are rewritten as amount text where they are numbers, otherwise they count 0.
[[nodiscard]] std::string CalcolaSaldoo(std::string& dare, std::string& avere);

// An instalment of no document, due today; its key. It hangs from an invoice, a party and a payment method of key -1,
// which are made when they are missing.
[[nodiscard]] std::int32_t creaRataLibera(Connection& cn, const std::string& anno, Date oggi);
// What an UPDATE sets for the text of a column of the grid, in column 0 "-1" or "0". An empty text becomes Null, as a
// due date today. Errore 13 and 6 for a text that is no date or amount.
[[nodiscard]] std::string assegnazione(int colonna, const std::string& testo, Date oggi);
// False when there is no such record any more.
[[nodiscard]] bool aggiornaScadenza(Connection& cn, std::int32_t id, const std::string& assegnazione);
void eliminaScadenza(Connection& cn, std::int32_t id);

}  // namespace bravona
