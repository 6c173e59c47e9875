#pragma once

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// Explains backup and restore, and opens the screen of either.
class frmBackup final : public Form {
public:
    explicit frmBackup(Sessione& sessione);

    Label lblBackup{
        "L'operazione di backup consente di salvare una copia dei dati utilizzati dal programma Bravona, utile in caso "
        "di ripristino dopo una reinstallazione del programma o di un qualsiasi problema alla base dati. Per tale "
        "motivo, si consiglia di effettuare periodicamente l'operazione di backup!"};
    Label lblRipristino{
        "L'operazione di ripristino consente di prelevare i dati di un backup precedentemente effettuato."};
    Button cmdBackup{"Esegui backup dei dati"};
    Button Command2{"Esegui ripristino dei dati"};
    Button cmdChiudi{"&Chiudi"};

    void onLoad() override;

private:
    void passaA(const char* schermata);
    Sessione& sessione_;
};

}  // namespace bravona
