#pragma once

#include "masterdata/ListaDiScelta.h"

namespace bravona {

// Chooses an article; the answer is `SelezioneArticolo`.
class frmSelezioneArticolo final : public ListaDiScelta {
public:
    explicit frmSelezioneArticolo(Sessione& sessione)
        : ListaDiScelta(sessione, "frmSelezioneArticolo", "Seleziona articolo", sessione.SelezioneArticolo)
    {}
};

}  // namespace bravona
