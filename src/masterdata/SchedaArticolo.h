#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "masterdata/clsArticolo.h"
#include "masterdata/modFunzioniComuni.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// What the screens of one article share: its fields on four pages, the ten prices, the picture, and the way of an
// article into the fields and back.
class SchedaArticolo : public Form {
public:
    static constexpr std::size_t numeroCaselle = 17;

    TabControl SSTabSezioni{{"&Dati articolo", "&Prezzi", "&Magazzino", "&Immagine"}};
    std::array<TextBox, numeroCaselle> txtArticolo;
    ComboBox cboUnitaDiMisura{true};
    ComboBox cboCodiciIVA;
    std::array<Label, numeroListini> lblDescrizioneListini;
    std::array<TextBox, numeroListini> txtEuro;
    Frame picContainer;
    PictureBox picChild;
    ScrollBar hsbWidht{true};
    ScrollBar vsbHeight{false};
    Button cmdImmagine{"Sceg&li immagine..."};

    void onActivate() override;
    [[nodiscard]] bool hasUnsavedWork() const override;
    [[nodiscard]] std::string subject() const override { return titoloMessaggi; }

protected:
    static constexpr const char* titoloMessaggi = "Anagrafica Articoli";
    // Of `txtArticolo`.
    static constexpr std::size_t codice = 0;
    static constexpr std::size_t descrizione = 3;

    SchedaArticolo(Sessione& sessione, const std::string& nome, const std::string& titolo);

    // At the end of the derived constructor, after its own controls were added: the pages between what stands above
    // them (none: an empty column) and the commands.
    void disponi(Layout sopra, Layout comandi);
    // Combos and names of the price lists.
    void inizializza();
    // Empties the fields but for `tranne`, for another article; what other screens may have changed is read anew.
    void svuota(std::initializer_list<const Control*> tranne = {});
    void primaVoceDelleCombo();
    void primaPagina() { SSTabSezioni.setTab(0); }

    // False after having told what is missing.
    bool VerificaRiempimentoCampiEssenziali();
    // True, after having told it, when another article has the code.
    bool codiceGiaInUso();
    // From the fields; a date or figure that was not typed into stays as it is in `articolo`. Errore 13 or 6 for a text
    // that is no such number, the focus in its box.
    void raccogli(clsArticolo& articolo);
    // Into the fields, prices aside; of an article that is stored.
    void mostra(const clsArticolo& articolo);
    void mostraPrezzi();
    // The prices that were typed, the others as the archive has them; false after having told the failure.
    bool registraPrezzi(std::int32_t idArticolo);
    // What is on the screen is no work of the person's: it was loaded, saved or is what an empty screen starts with.
    void ricordaContenuto();
    // After a refusal by the store: into the box of a date that is none, or the code.
    void vaiAlCampoErrato();
    // False, after having told it, when a price is no amount or too big for one; it has the focus.
    bool prezziAmmessi();
    void mostraImmagine(const std::string& percorso);  // empty: none
    void vai(std::size_t casella);                     // its page and the focus
    // Where the next key is wanted on the page that is shown.
    void vaiAlPrimoCampo();

    static constexpr std::int32_t nessuno = -1;
    Sessione& sessione_;
    std::int32_t IDArticolo_ = nessuno;       // the stored article in the fields
    Button* altroComandoImmagine_ = nullptr;  // stands beside `cmdImmagine`

private:
    void preparaCaselle();
    void preparaImmagine();
    Layout paginaDati();
    Layout paginaPrezzi();
    Layout paginaMagazzino();
    Layout paginaImmagine();
    [[nodiscard]] virtual std::vector<const Control*> campiDiRicerca() const { return {}; }
    [[nodiscard]] std::string contenuto() const;  // prices aside
    [[nodiscard]] bool prezziBattuti() const;
    void rileggiCodiciIva();  // keeps the chosen one
    void CaricaDescrizioneListini();
    void dimensionaBarre();
    template <class Conversione>
    auto leggi(std::size_t casella, Conversione conversione);

    std::string immagine_;                                 // path
    std::array<std::string, numeroCaselle> comeMostrate_;  // dates and figures as they were shown
    std::array<std::string, numeroListini> prezziMostrati_;
    std::string contenutoMostrato_;
};

}  // namespace bravona
