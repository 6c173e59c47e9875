#pragma once

#include <cstdint>
#include <optional>

#include "documents/ElenchiDocumenti.h"
#include "documents/SceltaRegistro.h"
#include "documents/TipoDocumento.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// The year's documents by kind and register, all of them or by customer and month; hands one to the screen that changes
// it, or prints it.
class frmVisualizzaArchivioDocumenti final : public Form {
public:
    explicit frmVisualizzaArchivioDocumenti(Sessione& sessione);

    ComboBox cboTipoArchivio;
    SceltaRegistro registro;
    ElenchiDocumenti elenchi;
    Button cmdShow{"&Visualizza"};
    Button cmdStampa{"&Stampa"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;
    void onActivate() override;

    void ImpostaArchivio();
    void CaricaDocumenti();
    void CaricaDocumentiCliente(const NodoPerMese& nodo);  // quotations, invoices and notes
    void CaricaBolleCliente(const NodoPerMese& nodo);      // transport documents

private:
    [[nodiscard]] Layout disponi();
    void caricaNodo(NodoPerMese nodo, bool bolle);
    void registroCambiato();
    void visualizza();
    void stampa();
    Sessione& sessione_;
    std::int16_t tipoDocumento_ = tipo::fattura;
    // What the list beside the tree shows: a node's transport documents, of whichever kind, or the kind's own.
    struct Elencato {
        NodoPerMese nodo;
        bool bolle = false;
    };
    std::optional<Elencato> elencato_;
    std::int64_t modificheViste_ = 0;  // of the archive, when the lists were read
};

}  // namespace bravona
