#pragma once

#include <cstdint>
#include <string>

#include "masterdata/RigaDiTabella.h"

namespace bravona {

// The columns of Clienti.
struct DatiCliente {
    bool VisualizzaNoteSuDocumenti = false;
    std::string NoteGeneriche, EstremiEsenzioneIVA, DescrizioneEsenzioneIVA;
    std::int32_t ScontoMaggiorazione1 = 0, ScontoMaggiorazione2 = 0, ScontoMaggiorazione3 = 0;  // percent
    std::int32_t IDListino = 0, IDpagamento = 0;                                                // 0: none
    bool EsenteIva = false;
    std::string CAB, ABI, Banca, Tipo, Stato, CodiceFiscale, PartitaIva, PostaElettronica, Fax, TelefonoCellulare,
        Telefono, Cap, Provincia, Citta, Indirizzo, ClienteSecondaRiga, Cliente;
    std::int32_t IDCliente = 0;
    std::string Listino;  // how the price list is called; not in the row, empty when it was read
};

// One row of Clienti, customer or supplier. The operations tell nobody of a failure.
class clsCliente final : public RigaDiTabella, public DatiCliente {
public:
    explicit clsCliente(Sessione& sessione) : RigaDiTabella(sessione, "clsCliente") {}

    // All of the row or, when any of it cannot be read, none: the members stay as they are then.
    Esito RichiamaCliente(std::int32_t id);
    Esito RegistraCliente(const Seguito& seguito = {});  // inserts; `IDCliente` is the new key
    Esito ModificaCliente(std::int32_t id);
    Esito EliminaCliente(std::int32_t id);

private:
    void scrivi(Recordset& record) const override;
};

}  // namespace bravona
