#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "masterdata/DestinazioniCliente.h"
#include "masterdata/clsCliente.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// A party on the screen, customer or supplier: what the screen for new ones and the one that finds and changes them
// have in common.
class SchedaCliente : public Form {
public:
    TabControl SSTab1{{"Ana&grafica", "&Banca e condizioni", "&Destinazioni"}};
    // By the index of the field; 15 is none.
    std::array<TextBox, 19> txtAnagrafica{TextBox{50}, TextBox{50}, TextBox{50}, TextBox{30}, TextBox{4},
                                          TextBox{7},  TextBox{18}, TextBox{18}, TextBox{18}, TextBox{34},
                                          TextBox{40}, TextBox{8},  TextBox{8},  TextBox{14}, TextBox{20},
                                          TextBox{0},  TextBox{5},  TextBox{5},  TextBox{5}};
    TextBox txtStato{18};
    OptionButton Option1{"Cliente"};
    OptionButton Option2{"Fornitore"};
    ListBox List1;    // payment methods
    ComboBox Combo1;  // price lists
    CheckBox chkEsenteIva{"Esente I.&V.A."};
    ComboBox cmbDescrizioneEsenzioneIVA{true};
    TextBox txtEstremiEsenzioneIVA{40};
    TextBox txtNoteGeneriche{50};
    CheckBox chkVisualizzaNoteSuDocumenti{"Vis&ualizza le note sui documenti"};
    DestinazioniCliente destinazioni;
    std::array<Button, 3> cmdCliente;

    void onLoad() override;
    void onActivate() override;
    [[nodiscard]] bool hasUnsavedWork() const override { return contenuto() != comeMostrato_; }
    [[nodiscard]] std::string subject() const override;

protected:
    SchedaCliente(Sessione& sessione, const char* nome, const char* titolo, RegoleDestinazioni regole,
                  std::array<const char*, 3> comandi);

    void aggiungiControlli();
    // The pages; beside the address what fetches the place, beside the payment methods what the screen shows there.
    [[nodiscard]] Layout pagine(std::vector<Layout> accantoIndirizzo, std::vector<Layout> accantoPagamenti);
    [[nodiscard]] Layout comandi();

    // False when a name, an address or a city is missing: told, and the focus stands there.
    [[nodiscard]] bool controllaDatiEssenziali();
    // The fields into the party, whose payment method and price list stay as they are where none is chosen. False when
    // a discount does not fit: told, and the focus stands there.
    [[nodiscard]] bool leggi(clsCliente& cliente);
    void mostra(const clsCliente& cliente);
    // False when a destination is typed and not added, and the person wants to add it first.
    [[nodiscard]] bool proseguiSenzaDestinazione();
    [[nodiscard]] std::string tipoScelto() const { return Option2.chosen() ? "F" : "C"; }
    // What is on the screen is no work of the person's: it was loaded, saved or is what an empty screen starts with.
    void ricordaContenuto() { comeMostrato_ = contenuto(); }
    // Every field and the destinations. The kind of party stays.
    void pulisci();
    void fuocoSuPagina();  // the first box of the page
    void fuocoSu(TextBox& campo, int pagina);

    [[nodiscard]] Sessione& sessione() { return sessione_; }

private:
    [[nodiscard]] Layout paginaAnagrafica(std::vector<Layout> accantoIndirizzo);
    [[nodiscard]] Layout paginaCondizioni(std::vector<Layout> accantoPagamenti);
    void cambiaPagina();
    void abilitaEsenzione();
    void rileggiPagamenti();  // keeps the chosen one
    // The fields of the party.
    [[nodiscard]] virtual std::string contenuto() const { return fieldContents(); }
    std::string comeMostrato_;
    Sessione& sessione_;
    Label lblCliente_{"    Rag&ione sociale"};
    Label lblIndirizzo_{"    Indiri&zzo"};
    Label lblCitta_{"    Ci&ttà"};
    Label lblObbligatori_{"(     = campi obbligatori)"};
};

namespace anagrafica {
inline constexpr const char* titolo = "Anagrafica Clienti";
inline constexpr int paginaIndirizzo = 0;
inline constexpr int paginaCondizioni = 1;
inline constexpr int paginaDestinazioni = 2;
inline constexpr std::size_t cliente = 0;
inline constexpr std::size_t indirizzo = 2;
inline constexpr std::size_t citta = 3;
inline constexpr std::size_t provincia = 4;
inline constexpr std::size_t cap = 5;
inline constexpr std::size_t banca = 10;
inline constexpr std::size_t partitaIva = 13;
inline constexpr std::size_t primoSconto = 16;
}  // namespace anagrafica

}  // namespace bravona
