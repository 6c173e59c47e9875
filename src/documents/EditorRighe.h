#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "documents/CampiRiga.h"
#include "documents/GrigliaRighe.h"
#include "documents/TotaliDocumento.h"

namespace bravona {

// What differs between the screens that edit a document's rows.
struct RegoleRighe {
    std::string titolo;              // of the editor's boxes
    std::string commentoIncompleto;  // a comment row without code or text, at "Aggiorna"
    std::string nulloDaModificare;   // "Modifica" without a row; empty: nothing is told
    std::string nulloDaEliminare;    // "Elimina" without a row
    std::string moduloEliminazione;  // the module named when a removal fails
    bool ritentaChiave = false;      // a running key that a loaded row holds already gives way to a further one
    bool unitaIntere = false;        // units of measure are kept whole; else their first two letters
    bool limiteCodiciIva = true;     // no sixth VAT code is added
    bool ripetiAvvisoIva = false;    // too many VAT codes are told a second time, in a box of the screen

    std::function<bool()> puoAggiungere = {};                      // false: told already, nothing is added
    std::function<bool()> puoComandare = {};                       // the same for all three row commands
    std::function<bool()> puoAggiungereArticolo = {};              // asked for a normal row only
    std::function<bool(const RigaDocumento&)> puoModificare = {};  // false: told already
    std::function<bool(const RigaDocumento&)> soloImporti = {};    // code and description stay as they are
};

// The row editor shared by the document screens: entry fields, rows, row commands and totals.
class EditorRighe final : public ControlGroup {
public:
    // How the rows are entered, shown and totalled.
    struct Forma {
        RegoleCampi campi;
        ColonneGriglia colonne = colonneVendita();
        ChiaviRighe chiavi = ChiaviRighe::vendita;
        clsCalcoli::Gruppi gruppi = clsCalcoli::Gruppi::perCodice;
    };
    EditorRighe(Sessione& sessione, RegoleRighe regole, Forma forma);

    CampiRiga campi;
    std::array<Button, 3> cmdDettagli{Button{"Aggiungi"}, Button{"Modifica"}, Button{"Elimina"}};
    GrigliaRighe griglia;
    TotaliDocumento totali;

    [[nodiscard]] const std::vector<RigaDocumento>& righe() const { return griglia.righe(); }
    // The same as they are kept: units of two letters where the rule says so, codes of comments without blanks.
    [[nodiscard]] std::vector<RigaDocumento> righeDaRegistrare() const;
    // Rows with an amount at the last totals.
    [[nodiscard]] std::int16_t righeValide() const { return totali.calcoli().NumeroRigheValide(); }
    [[nodiscard]] bool inModifica() const { return rigaInModifica_.has_value(); }
    [[nodiscard]] bool conArticoli() const;  // not comments alone
    // False: a row stands in the fields, not yet added or being changed, and the person does not go on without it.
    [[nodiscard]] bool righeConcluse();
    // Called when the row-edit state begins or ends.
    std::function<void()> statoCambiato;
    // A row is taken from the fields: the one that it takes the place of, nullptr for a new one.
    std::function<void(RigaDocumento& nuova, const RigaDocumento* vecchia)> rigaPresa;
    // The row whose change begins; nullptr: the fields are for a new one again.
    std::function<void(const RigaDocumento* riga)> rigaMostrata;

    // Once, when the screen is loaded: the combos filled, no rows, the fields as on a new row.
    void inizializza();
    // The rows of a stored document in place of what is there; its totals.
    void mostra(std::span<const RigaDocumento> righe);
    // Fields, rows and totals take input or not; the rows do not while one of them is being changed.
    void abilita(bool abilitato);
    void AggiornaTotali();    // Errore 9 for a sixth VAT code
    void AnnullaDettaglio();  // leaves the row-edit state
    [[nodiscard]] Layout layout();

private:
    void comando(int indice);
    void aggiungi();
    void AggiungiDettaglio();
    void AggiungiCommento();
    void ModificaDettaglio();
    void AggiornaDettaglio();
    void EliminaDettaglio();
    void comandiNormali();
    [[nodiscard]] bool TroppiCodiciIVA(std::int32_t idCodiceIva) const;
    void tastoElenco(KeyEvent& evento);

    Sessione& sessione_;
    RegoleRighe regole_;
    std::optional<std::size_t> rigaInModifica_;
};

}  // namespace bravona
