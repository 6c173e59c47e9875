#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "documents/EditorRighe.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"
#include "warehouse/Movimento.h"

namespace bravona {

// What the two screens of goods received have in common: supplier, numbers and dates, the rows, the checks.
class SchermataMovimento : public Form {
public:
    Frame fraFornitore{"Fornitore"};
    TextBox txtFornitore{40};
    TextBox txtNumeroDocumento{10};
    TextBox txtDataDocumento{12};
    TextBox txtDataOperazione{12};
    TextBox txtProgressivoDocumento{8};
    TextBox txtAggiornato{3};
    EditorRighe righe;
    std::array<Button, 2> cmdDocumento;

    std::int32_t IDFornitore = 0;  // 0: none

protected:
    static constexpr std::size_t comandoPrincipale = 0;
    static constexpr std::size_t comandoChiudi = 1;

    SchermataMovimento(Sessione& sessione, const char* nome, const char* comando, const char* chiusura);

    void inizializzaCampi();
    void mostra(const Movimento& movimento);
    // The supplier by the typed name.
    void cercaFornitore();
    // What must be there, in its order: the first that is missing is told. A date or a number that is none counts as
    // a wrong value.
    [[nodiscard]] bool controllaDati();
    [[nodiscard]] Movimento movimentoDaiCampi() const;  // after `controllaDati`
    void abilita(bool abilitato);
    void pulsantiPredefiniti();
    [[nodiscard]] bool toccata() const;  // something was typed or added
    [[nodiscard]] Sessione& sessione() const { return sessione_; }

private:
    void disponi();
    [[nodiscard]] bool nomeConfermato();
    [[nodiscard]] bool valoriPossibili();
    void rifiuta(TextBox& campo);
    Sessione& sessione_;
    std::string nomeFornitore_;
};

inline constexpr const char* titoloMovimenti = "Gestione Movimenti Magazzino";
inline constexpr const char* titoloEsitoMovimenti = "Gestione movimenti magazzino";

}  // namespace bravona
