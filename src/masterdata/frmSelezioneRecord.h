#pragma once

#include "masterdata/ListaDiScelta.h"

namespace bravona {

// Chooses a party or a municipality; the answer is `SelezioneRecord`.
class frmSelezioneRecord final : public ListaDiScelta {
public:
    explicit frmSelezioneRecord(Sessione& sessione)
        : ListaDiScelta(sessione, "frmSelezioneRecord", "Seleziona record", sessione.SelezioneRecord)
    {}
};

}  // namespace bravona
