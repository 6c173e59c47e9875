#pragma once

#include <array>

#include "masterdata/SchedaArticolo.h"

namespace bravona {

// Adds an article with its prices and opening stock.
class frmRegistraArticolo final : public SchedaArticolo {
public:
    explicit frmRegistraArticolo(Sessione& sessione);

    std::array<Button, 3> cmdArticolo{Button("&Registra"), Button("&Chiudi"), Button("Ricerca...")};

    void onLoad() override;

private:
    void valoriIniziali();
    void Registra();
    bool RegistraNuovoArticolo();
};

}  // namespace bravona
