#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "documents/RigheDettaglio.h"
#include "documents/clsCalcoli.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// What differs between the screens that edit a document's rows.
struct RegoleRighe {
    std::string titolo;              // of the editor's boxes
    std::string commentoIncompleto;  // a comment row without code or text, at "Aggiorna"
    std::string nulloDaModificare;   // "Modifica" without a row
    std::string nulloDaEliminare;    // "Elimina" without a row
    bool ritentaChiave = false;      // rows loaded from the archive may hold the next running key: take a further one
    bool ripetiAvvisoIva = false;    // too many VAT codes are told a second time, in a box of the screen

    std::function<bool()> puoAggiungere;                          // false: told already, nothing is added
    std::function<bool()> puoAggiungereArticolo;                  // asked for a normal row only
    std::function<bool(const ListRow&)> puoModificare;            // false: told already
    std::function<bool(const ListRow&)> soloImporti;              // code and description stay as they are
    std::function<std::array<std::string, 3>()> scontiAssociati;  // the customer's discounts, as shown
    std::function<bool()> clienteEsente;
};

// The row editor shared by the document screens: entry fields, grid, row commands, row arithmetic and totals.
class EditorRighe final : public FonteRighe {
public:
    EditorRighe(Sessione& sessione, RegoleRighe regole);

    Frame fraDettagli{"Righe"};
    TextBox txtCodiceArticolo{14};
    TextBox txtDescrizione{40};
    TextBox txtQuantita{9};
    ComboBox cmbListino;
    TextBox txtPrezzo{13};
    std::array<TextBox, 3> txtSconto{TextBox{4}, TextBox{4}, TextBox{4}};
    TextBox txtPrezzoScontato{13};
    TextBox txtTotaleRiga{14};
    ComboBox cmbUnitaMisura{true};
    ComboBox cmbIva;
    std::array<Button, 3> cmdDettagli{Button{"Aggiungi"}, Button{"Modifica"}, Button{"Elimina"}};
    ListView lvwDettagli;
    Frame fraTotali{"Totali"};
    TextBox txtNumeroRighe{6};
    TextBox txtTotaleImportoRigheDocumento{16};
    TextBox txtScontoGenerale{5};
    TextBox txtTotaleImportoImponibile{16};
    TextBox txtTotaleImportoIVA{16};
    TextBox txtTotaleImportoDocumento{18};
    Button cmdDettagliIVA{"..."};

    std::int32_t IDListinoOriginale = 0;  // the customer's price list, 0 for none
    std::array<double, 3> Sconto{};       // discounts of the row being entered, percent

    // Price list of the row being entered, 1 to 10, 0 for none; setting it moves the combo too.
    [[nodiscard]] std::int32_t IDListino() const { return idListino_; }
    void setIDListino(std::int32_t listino);
    // The customer's discounts into fields and variables.
    void riprendiSconti();

    [[nodiscard]] clsCalcoli& calcoli() { return calcoli_; }
    [[nodiscard]] std::int16_t numeroRighe_() const { return righeValide_; }  // valid rows at the last totals
    [[nodiscard]] bool inModifica() const { return rigaInModifica_.has_value(); }
    // Called when the row-edit state begins or ends.
    std::function<void()> statoCambiato;

    // Fills the combos and the columns; the fields as on a new row.
    void inizializza();
    // Names its controls on the form that owns it.
    void registra(const std::function<void(const std::string&, Control&, int)>& aggiungi);
    [[nodiscard]] Layout layout();

    // Errore 9 for a sixth VAT code, 13 for a row total that cannot be read.
    void AggiornaTotali();
    // False, after having told it: a code of the rows has been deleted from the table since, and would count as 0 %.
    // To be asked after the totals.
    [[nodiscard]] bool CodiciIvaPresenti();
    void AnnullaDettaglio();  // leaves the row-edit state
    void PulisciCampiRiga();
    [[nodiscard]] std::string NuovaChiaveRiga() { return std::to_string(++ultimaChiave_); }
    void partiDaChiave(std::int64_t ultima) { ultimaChiave_ = ultima; }

    // The rows as the engine reads them.
    [[nodiscard]] std::size_t numeroRighe() const override { return lvwDettagli.rowCount(); }
    [[nodiscard]] const std::string& tagRiga(std::size_t riga) const override { return lvwDettagli.row(riga).tag; }
    [[nodiscard]] const std::string& totaleRiga(std::size_t riga) const override;
    [[nodiscard]] const std::string& codiceIvaRiga(std::size_t riga) const override;

private:
    void collegaCampi();
    void comando(int indice);
    void aggiungi();
    void AggiungiDettaglio();
    void AggiungiCommento();
    void ModificaDettaglio();
    void AggiornaDettaglio();
    void EliminaDettaglio();
    void copiaNeiCampi(const ListRow& riga);
    void comandiNormali();
    [[nodiscard]] ListRow rigaDaiCampi(std::string chiave) const;
    void aggiungiRiga(const char* lettera, const std::function<ListRow(std::string)>& riga);
    [[nodiscard]] bool ControllaRiga();
    [[nodiscard]] bool RigaSpeciale() const;
    [[nodiscard]] bool TroppiCodiciIVA(std::int32_t idCodiceIva) const;
    void ImpostaArticolo(int modo);
    [[nodiscard]] bool codiceDaCercare() const;
    void cercaArticolo(int modo);
    void calcolaRiga();  // CalcolaTotaleRiga on the fields
    void lasciaSconto(std::size_t indice);
    void riferisci(const std::function<void()>& calcolo);
    void filtroQuantita(char32_t& tasto) const;
    void avverti(const std::string& testo, Control& campo);
    void zoomDescrizione();

    Sessione& sessione_;
    RegoleRighe regole_;
    clsCalcoli calcoli_;
    std::int32_t idListino_ = 0;
    std::int16_t righeValide_ = 0;
    std::int64_t ultimaChiave_ = 0;
    std::optional<std::size_t> rigaInModifica_;
    bool inCalcolo_ = false;
    bool inRicerca_ = false;
    bool inCopia_ = false;
};

}  // namespace bravona
