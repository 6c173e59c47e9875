#pragma once

#include "masterdata/SchedaCliente.h"

namespace bravona {

// Adds customers and suppliers, with their destinations.
class frmRegistraCliente final : public SchedaCliente {
public:
    explicit frmRegistraCliente(Sessione& sessione);

    Button Command1{"Cerca"};

    void onLoad() override;
    [[nodiscard]] bool hasUnsavedWork() const override
    {
        return SchedaCliente::hasUnsavedWork() || destinazioni.lvwDestinazioni.rowCount() > 0;
    }

private:
    void Registra();
    [[nodiscard]] bool giaPresente();
    void scegliComune();
    void nuova();
    int contatore_ = 0;  // of the keys in the list of destinations
};

}  // namespace bravona
