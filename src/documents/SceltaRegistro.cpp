#include "documents/SceltaRegistro.h"

#include "session/modMain.h"

namespace bravona {

SceltaRegistro::SceltaRegistro()
{
    add("cmbRegistro", cmbRegistro);
    cmbRegistro.width = 24;
}

void SceltaRegistro::carica(const Sessione& sessione)
{
    cmbRegistro.onClick = nullptr;
    cmbRegistro.clear();
    CaricaComboRegistri(sessione, cmbRegistro);
    if (!cmbRegistro.items().empty())
        cmbRegistro.setListIndex(0);
    cmbRegistro.onClick = [this] {
        if (registroCambiato)
            registroCambiato();
    };
}

Layout SceltaRegistro::linea()
{
    return layout::line("&Registro", layout::row({layout::of(cmbRegistro), layout::stretch()}));
}

}  // namespace bravona
