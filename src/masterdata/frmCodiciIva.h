#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "masterdata/frmInserimentoCodiceIva.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// The VAT codes: new ones, changes of a description, deletion.
class frmCodiciIva final : public Form {
public:
    explicit frmCodiciIva(Sessione& sessione);

    // What the dialog for one code hands back.
    std::string NuovoCodice;
    std::string Descrizione;
    std::int16_t NuovaAliquota = 0;  // percent
    bool Annulla = false;

    ListView lvwCodiciIva;
    std::array<Button, 3> cmdNuova{Button("&Nuovo..."), Button("&Modifica..."), Button("&Elimina")};
    std::array<Button, 2> cmdAzioni{Button("&Ok"), Button("&Chiudi")};

    void onLoad() override;

private:
    void Nuovo();
    void Modifica();
    void Elimina();
    // False when the person gave up.
    bool chiedi(frmInserimentoCodiceIva& dialogo);
    [[nodiscard]] std::int32_t idSelezionato() const;  // 0: none
    Sessione& sessione_;
};

}  // namespace bravona
