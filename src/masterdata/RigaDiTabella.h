#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "masterdata/Esito.h"
#include "session/Sessione.h"

namespace bravona {

// One row of a table of master data. The operations answer what became of them, and tell nobody.
class RigaDiTabella {
public:
    // What is written behind a new row of that key: the row and this are stored together or not at all. What fails in
    // it is the caller's to tell.
    using Seguito = std::function<void(std::int32_t id)>;

    Connection* DataBase;

protected:
    // What an insertion tells when the store refuses the row.
    struct Rifiuti {
        std::string titolo;
        std::string doppione;
        std::string senzaNome;  // empty: told as any other failure
    };

    RigaDiTabella(Sessione& sessione, std::string modulo) : DataBase(&sessione.cn), modulo_(std::move(modulo)) {}
    RigaDiTabella(const RigaDiTabella&) = default;
    ~RigaDiTabella() = default;

    // Runs `lavoro`; a failure reads in the standard form with the name of the routine.
    Esito protetto(const char* routine, const std::function<void()>& lavoro) const;
    Esito inserisci(const char* routine, const char* tabella, const char* chiave, std::int32_t& id,
                    const Rifiuti& rifiuti, const Seguito& seguito = {}) const;
    Esito modifica(const char* routine, const std::string& selezione) const;
    Esito elimina(const char* routine, const std::string& istruzione) const;

private:
    virtual void scrivi(Recordset& record) const = 0;
    [[nodiscard]] Esito fallito(const Errore& errore, const char* routine) const;

    std::string modulo_;
};

}  // namespace bravona
