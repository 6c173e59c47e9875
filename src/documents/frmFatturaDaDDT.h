#pragma once

#include <vector>

#include "documents/AlberoPerMese.h"
#include "documents/Documento.h"
#include "documents/SceltaRegistro.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Makes one deferred invoice of a customer's transport documents.
class frmFatturaDaDDT final : public Form {
public:
    explicit frmFatturaDaDDT(Sessione& sessione);

    SceltaRegistro registro;
    AlberoPerMese albero;
    ListView lvwBolleCliente;
    Button cmdShow{"&Emetti fattura"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    Layout disponi();
    void ricarica();  // what the chosen node holds, where one is chosen
    void CaricaBolleCliente(const NodoPerMese& nodo);
    [[nodiscard]] bool spuntabile(std::size_t riga) const;
    void spunta(bool tutte);
    void abilitaComando();
    void EmettiFatturaDaDDT();
    [[nodiscard]] std::vector<Documento> bolleSpuntate() const;

    Sessione& sessione_;
};

}  // namespace bravona
