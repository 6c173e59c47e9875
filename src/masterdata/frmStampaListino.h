#pragma once

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Chooses what of a price list goes on paper.
class frmStampaListino final : public Form {
public:
    explicit frmStampaListino(Sessione& sessione);

    ComboBox cmbListino;
    ComboBox cmbOrder;
    TextBox txtFilter{28};
    ComboBox cmbFilterField;
    Label lblNessunFiltro{"non indicare nessun filtro per includere tutti gli articoli"};
    TextBox txtTitoloListino{40};
    Button cmdShow{"&Stampa"};
    Button cmdClose{"&Chiudi"};

    void onLoad() override;

private:
    void Stampa();

    Sessione& sessione_;
};

}  // namespace bravona
