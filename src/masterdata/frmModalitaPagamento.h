#pragma once

#include <cstddef>

#include "platform/store/Recordset.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "session/Sessione.h"

namespace bravona {

// The payment methods, changed, added and deleted in the grid. Closing it, in any way, saves all of it in one batch;
// who fails at that twice may give the changes up.
class frmModalitaPagamento final : public Form {
public:
    explicit frmModalitaPagamento(Sessione& sessione);

    DataGrid DataGrid1;
    Button cmdElimina{"&Elimina"};
    Button cmdChiudi{"&Chiudi"};

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;
    void onUnload() override;
    [[nodiscard]] std::string subject() const override { return caption(); }

private:
    [[nodiscard]] std::string decorrenza() const;  // "DF-FM" of the current row
    void completa();                               // the current row is about to be kept
    [[nodiscard]] bool puoEliminare();             // the current row
    void cambiaDecorrenza();
    Sessione& sessione_;
    Recordset pagamenti_;
    std::size_t colonnaDecorrenza_ = 0;
    bool nonSalvata_ = false;  // a closing failed already
};

}  // namespace bravona
