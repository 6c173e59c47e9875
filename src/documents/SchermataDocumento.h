#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "documents/BloccoCliente.h"
#include "documents/BloccoIntestazione.h"
#include "documents/BloccoTrasporto.h"
#include "documents/Documento.h"
#include "documents/EditorRighe.h"
#include "documents/TipoDocumento.h"
#include "masterdata/RiceveDestinazione.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

enum class ModoDocumento {
    composizione,  // a new document
    lettura,       // a stored one, looked at
    modifica,      // a stored one, being changed
    registrato     // just registered: nothing more can be changed here
};

// What takes input on a page of the screen while the document is composed or changed, and where the focus goes. A page
// without the former leaves the others as they are.
struct PaginaDocumento {
    std::function<void(bool abilitata)> abilita;
    Control* fuoco = nullptr;
};

// What the screens that show one document have in common: its parts, its modes, which page takes input, which buttons
// Enter and Escape press, and the transaction with its box. A screen gives its pages and its commands.
class SchermataDocumento : public Form, public RiceveDestinazione {
public:
    TabControl schede;  // under the screen's own name
    BloccoIntestazione intestazione;
    BloccoTrasporto trasporto;
    EditorRighe righe;
    BloccoCliente cliente;
    std::array<Button, 3> cmdDocumento;

    void RiceviDestinazione(std::int32_t idDestinazione, const std::string& destinazione) override;

protected:
    struct Nomi {
        std::string schermata, titolo;  // of the form; of its boxes
        std::string schede;             // the tab control's
        std::string chiamante;          // for the destination picker
        std::vector<std::string> pagine;
        std::array<const char*, 3> comandi;
    };
    static constexpr std::size_t comandoPrincipale = 0;
    static constexpr std::size_t comandoChiudi = 1;
    static constexpr std::size_t comandoStampa = 2;

    SchermataDocumento(Sessione& sessione, const Nomi& nomi, RegoleRighe regole);
    // Once, in the constructor of the screen: its pages in order and the one with the rows.
    void setPagine(std::vector<PaginaDocumento> pagine, int paginaRighe);
    // The command buttons at the end of the window.
    [[nodiscard]] Layout disposizioneComandi();
    // Fills combos and fields as on a new document.
    void inizializzaCampi();

    [[nodiscard]] Sessione& sessione() const { return sessione_; }
    [[nodiscard]] const std::string& titoloMessaggi() const { return titolo_; }
    [[nodiscard]] ModoDocumento modo() const { return modo_; }
    [[nodiscard]] bool modificabile() const
    {
        return modo_ == ModoDocumento::composizione || modo_ == ModoDocumento::modifica;
    }
    void setModo(ModoDocumento modo);
    // The page that shows takes input, the others do not; nothing where the document cannot be changed.
    virtual void AbilitaSchede();
    void disabilitaTutto();
    virtual void cambiaScheda();
    void pulsantiPredefiniti();

    // What the fields say of the header: all but number, register, kind and reason for transport. Errore 13 for a text
    // that is no number.
    [[nodiscard]] TestataDocumento testataDaiCampi() const;

    // Nothing typed would be lost by writing the document: neither another customer's name nor a row. False: told or
    // asked, and the focus is there.
    [[nodiscard]] bool nienteInSospeso();

    // The writes of one command, all or nothing. False when they failed: told, with that routine and module.
    bool inUnaTransazione(const std::function<void()>& scritture, const char* routine, const char* modulo);

private:
    void clienteCambiato(const ClienteDelDocumento& scelto);
    void avvisaData();
    Sessione& sessione_;
    std::string titolo_;
    std::vector<PaginaDocumento> pagine_;
    int paginaRighe_ = 0;
    bool esenteDelleRighe_ = false;  // whether the customer of the rows entered so far pays no VAT
    ModoDocumento modo_ = ModoDocumento::composizione;
};

}  // namespace bravona
