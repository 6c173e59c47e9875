#pragma once

#include <string>

#include "duedates/FiltriFatture.h"
#include "platform/store/Recordset.h"
#include "platform/values/Currency.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// The year's invoices and notes: a filtered list with its totals, in which credit notes count against, and its print.
class frmResoconto final : public Form {
public:
    explicit frmResoconto(Sessione& sessione);

    FiltriFatture filtri;
    ListView lvwDettaglio;
    Frame fraTotali{"Totali"};
    Label lblTotaleDocumenti;
    Label lblTotaleImportoEuro;
    Label lblTotaleIVA;
    Label lblTotale;
    Button cmdOk{"A&ggiorna"};
    Button cmdStampa{"&Stampa"};
    Button cmdChiudi{"&Chiudi"};

    void onLoad() override;

private:
    void disponi();
    [[nodiscard]] Recordset cerca();
    void Riempi(Recordset& fatture);
    void MostraTotali(std::size_t documenti, Currency imponibile, Currency iva);
    void Stampa();

    Sessione& sessione_;
    Currency totale_;
};

}  // namespace bravona
