#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "masterdata/SchedaCliente.h"

namespace bravona {

// Finds customers and suppliers, shows and changes them. Destinations are written as they come and go.
class frmVariazioneCliente final : public SchedaCliente {
public:
    explicit frmVariazioneCliente(Sessione& sessione);

    std::int32_t IDCliente = 0;  // above 0, set before it is shown: the party to open on

    ComboBox Combo2;  // what is searched by
    TextBox txtCercaCliente{30};
    Label lblModalitaPagamento;

    void onLoad() override;
    void onActivate() override;
    void onKeyDown(KeyEvent& evento) override;

private:
    [[nodiscard]] std::string contenuto() const override;
    void Ricerca();
    void carica(std::int32_t id);
    void Aggiorna();
    [[nodiscard]] bool registra(clsCliente& cliente);
    [[nodiscard]] bool RegistraDestinazioniMerce();
    [[nodiscard]] bool CaricaElenco(std::int32_t id);
    [[nodiscard]] bool puoAggiungere();
    [[nodiscard]] bool eliminaDestinazione(const std::string& chiave);
    void svuota();
    std::optional<clsCliente> caricato_;  // as it was read; none: nobody is on the screen
    Label lblRicerca_{"Premi F3 per la Ricerca"};
};

}  // namespace bravona
