#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "documents/Documento.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// What a customer's rows begin with.
struct CondizioniCliente {
    std::int32_t listino = 0;              // price list, 1 to 10; 0: none
    std::array<std::int32_t, 3> sconti{};  // percent
    bool esente = false;                   // from VAT
};

// What differs between the screens in the entry of one row.
struct RegoleCampi {
    std::string titolo;         // of the boxes
    std::string titoloRicerca;  // of the box for a code that is none to search for
    // What a row must have: on a sale all of code, description, unit, a quantity other than 0, a price and a VAT code;
    // on goods received code and quantity.
    enum class Controllo { vendita, carico } controllo = Controllo::vendita;
};

// The entry fields of one row: what is typed, the article search, the row's arithmetic.
class CampiRiga final : public ControlGroup {
public:
    CampiRiga(Sessione& sessione, RegoleCampi regole);

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

    std::array<double, 3> Sconto{};  // discounts of the row being entered, percent

    // Down from the article's code leads on.
    std::function<void()> versoElenco;

    void inizializza();  // fills the combos; the fields as on a new row
    // For the next rows; discounts and price list of the one being entered follow.
    void setCondizioni(const CondizioniCliente& condizioni);
    void riprendiSconti();                    // the customer's discounts
    void riprendiListino();                   // the customer's price list
    void setIDListino(std::int32_t listino);  // of the row being entered, 0 for none; moves the combo too
    [[nodiscard]] std::int32_t idArticolo() const { return idArticolo_; }
    void PulisciCampiRiga();
    void nuovaRiga();  // the code too

    [[nodiscard]] bool RigaSpeciale() const;  // the fields make a comment row
    // The row in the fields; none where something is missing or too big for money: told, and it has the focus.
    [[nodiscard]] std::optional<RigaDocumento> rigaControllata();
    [[nodiscard]] RigaDocumento leggiCommento() const;
    // An article or a description, and a quantity, stand in the fields.
    [[nodiscard]] bool rigaScritta() const;
    // A row into the fields, to be changed. `soloImporti`: code and description stay as they are.
    void mostra(const RigaDocumento& riga, bool soloImporti);
    void sblocca();  // code and description can be typed again

    // `comandi` stand at the end of the last line.
    [[nodiscard]] Layout layout(std::vector<Layout> comandi);

private:
    void collega();
    // In the order of the fields; what is missing is told and gets the focus.
    [[nodiscard]] bool ControllaRiga();
    [[nodiscard]] bool controllaPrezzo();  // none counts as 0
    [[nodiscard]] bool controllaCarico();
    [[nodiscard]] RigaDocumento leggi() const;  // after `ControllaRiga`; Errore 6 for an amount out of range
    void ImpostaArticolo(int modo);
    void cercaArticolo(int modo);
    [[nodiscard]] bool codiceDaCercare() const;
    void calcolaRiga();  // CalcolaTotaleRiga on the fields
    void lasciaSconto(std::size_t indice);
    void filtroQuantita(char32_t& tasto) const;
    void avverti(const std::string& testo, Control& campo);
    void zoomDescrizione();

    Sessione& sessione_;
    RegoleCampi regole_;
    CondizioniCliente condizioni_;
    std::int32_t idListino_ = 0;
    std::int32_t idArticolo_ = righe::libera;
    bool inCalcolo_ = false;
    bool inRicerca_ = false;
    bool inCopia_ = false;
};

}  // namespace bravona
