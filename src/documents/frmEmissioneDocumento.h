#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "documents/BloccoCliente.h"
#include "documents/BloccoIntestazione.h"
#include "documents/BloccoTrasporto.h"
#include "documents/EditorRighe.h"
#include "documents/modRegistrazione.h"
#include "duedates/GrigliaScadenze.h"
#include "duedates/modScadenze.h"
#include "masterdata/RiceveDestinazione.h"

namespace bravona {

// Composes and registers a new document of any of the five kinds. `TipoDocumento` is set before the screen is shown.
class frmEmissioneDocumento final : public Form, public RiceveDestinazione {
public:
    explicit frmEmissioneDocumento(Sessione& sessione);

    std::int16_t TipoDocumento = 0;

    TabControl SSTabDocumento{{"&Intestazione", "&Corpo documento", "&Dati Spedizione", "&Scadenzario"}};
    BloccoIntestazione intestazione;
    BloccoTrasporto trasporto;
    EditorRighe righe;
    BloccoCliente cliente;
    GrigliaScadenze Griglia;
    Button cmdRicalcola{"&Ricalcola Scadenze"};
    std::array<Button, 3> cmdDocumento{Button{"&Registra"}, Button{"Annulla"}, Button{"&Stampa"}};

    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;
    void onUnload() override;
    void RiceviDestinazione(std::int32_t idDestinazione, const std::string& destinazione) override;

private:
    void registraControlli();
    Layout disponi();
    void AbilitaSchede();
    void cambiaScheda();
    void pulsantiPredefiniti();
    void proponiNumero();
    void generaScadenze();
    void RegistraDocumento();
    [[nodiscard]] bool ControllaDatiDocumento();
    [[nodiscard]] bool NumeroDisponibile(std::int32_t& numero);
    [[nodiscard]] std::int32_t scriviTestata(std::int32_t numero);
    void documentoRegistrato();
    void StampaDocumento();
    [[nodiscard]] std::int32_t registro() const { return intestazione.cmbRegistro.itemData(); }

    Sessione& sessione_;
    TabelleDocumento tabelle_;
    bool registrato_ = false;
    std::int32_t numeroRegistrato_ = 0;
};

}  // namespace bravona
