#pragma once

#include <array>

#include "maintenance/FinestraBackup.h"

namespace bravona {

// Puts the archive of a backup file in the place of the database.
class FRMRipristino final : public FinestraBackup {
public:
    explicit FRMRipristino(Sessione& sessione);

    std::array<Label, 2> Label1{Label("seleziona Backup e clicka su Ripristina."), Label()};  // 1: the file selected
    Label Label2{"File selezionato"};
    FileList File1;
    Button Command1{"Ripristina"};

    void onLoad() override;

private:
    void cambiaUnita();
    void cambiaCartella();
    void scegliFile();
    void Ripristina();
};

}  // namespace bravona
