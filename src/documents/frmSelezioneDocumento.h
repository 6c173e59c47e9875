#pragma once

#include <array>

#include "platform/windowing/Fields.h"
#include "session/Sessione.h"

namespace bravona {

// Chooses the kind of a new document and opens the screen that makes it.
class frmSelezioneDocumento final : public Form {
public:
    explicit frmSelezioneDocumento(Sessione& sessione);

    std::array<OptionButton, 8> optTipoDocumento{OptionButton{"Fattura Immediata / Accompagnatoria"},
                                                 OptionButton{"Fattura Differita / Riepilogativa D.D.T."},
                                                 OptionButton{"Documento di Trasporto (D.D.T.)"},
                                                 OptionButton{"Preventivo di Spesa"},
                                                 OptionButton{"Nota di Credito"},
                                                 OptionButton{"Nota di Debito"},
                                                 OptionButton{"Fattura da Fattura Preventivo esistente"},
                                                 OptionButton{"D.D.T. da Fattura Preventivo esistente"}};
    Frame fraTipo{"Tipo documento"};
    std::array<Button, 2> cmdAzioni{Button{"&Ok"}, Button{"&Annulla"}};

private:
    void conferma();
    Sessione& sessione_;
};

}  // namespace bravona
