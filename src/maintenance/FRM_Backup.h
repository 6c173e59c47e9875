#pragma once

#include "maintenance/FinestraBackup.h"

namespace bravona {

// Packs the database into a folder of the person's choice.
class FRM_Backup final : public FinestraBackup {
public:
    explicit FRM_Backup(Sessione& sessione);

    Label Label1{"Seleziona dove salvare il Backup."};
    TextBox Text2{60};
    Button Command2{"Crea Backup"};

    void onLoad() override;

private:
    void cambiaUnita();
    void CreaBackup();
    void mostraFallimento(const Errore& errore);
};

}  // namespace bravona
