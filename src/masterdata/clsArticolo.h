#pragma once

#include <cstdint>
#include <string>

#include "masterdata/RigaDiTabella.h"
#include "platform/values/Currency.h"

namespace bravona {

// One row of Articoli with its VAT code. The operations tell nobody of a failure.
class clsArticolo final : public RigaDiTabella {
public:
    static constexpr const char* nessunaData = "00/00/0000";  // how no date is shown

    explicit clsArticolo(Sessione& sessione) : RigaDiTabella(sessione, "clsArticolo") {}

    Currency ScaricoValore, CaricoValore;
    double QuantitaMinima = 0, Giacenza = 0, Scarico = 0, Carico = 0;
    Currency CostoUltimo, CostoMedio;
    // dd/mm/yyyy; Null is read as "00/00/0000", which, like the empty text, is stored as Null.
    std::string DataUltimoScarico, DataUltimoCarico, DataPrimoCarico;
    std::string Immagine;  // path
    std::int32_t IDArticolo = 0, IDCodiceIva = 0;
    std::string DescrizioneSecondariaDue, DescrizioneSecondariaUno, DescrizionePrincipale, CodiceBarreFornitore,
        CodiceFornitore, CodiceMagazzino;
    // Of the VAT code; read, never written.
    double AliquotaIva = 0;  // percent
    std::string CodiceIva;

    [[nodiscard]] const std::string& UnitaMisura() const { return unitaMisura_; }
    void setUnitaMisura(const std::string& unita);  // a blank one is "Pz"

    // Fails without a message when there is no such article, or its VAT code has gone.
    Esito RichiamaArticolo(std::int32_t id);
    // The row as it stands now, with or without its VAT code, which is not read. Succeeds also when it is not there:
    // the members stay then.
    Esito RileggiArticolo(std::int32_t id);
    Esito RegistraArticolo();  // inserts; `IDArticolo` is the new key
    Esito ModificaArticolo(std::int32_t id);
    Esito EliminaArticolo(std::int32_t id);

private:
    void leggi(Recordset& record);
    void scrivi(Recordset& record) const override;
    std::string unitaMisura_ = "Pz";
};

}  // namespace bravona
