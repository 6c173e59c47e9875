#pragma once

#include <span>

#include "documents/clsCalcoli.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// The totals of the document on the screen, and the engine behind them.
class TotaliDocumento final : public ControlGroup {
public:
    explicit TotaliDocumento(Sessione& sessione, clsCalcoli::Gruppi gruppi = clsCalcoli::Gruppi::perCodice);

    Frame fraTotali{"Totali"};
    TextBox txtNumeroRighe{6};
    TextBox txtTotaleImportoRigheDocumento{16};
    TextBox txtScontoGenerale{5};
    TextBox txtTotaleImportoImponibile{16};
    TextBox txtTotaleImportoIVA{16};
    TextBox txtTotaleImportoDocumento{18};
    Button cmdDettagliIVA{"..."};

    // The general discount was left: totals are to be made anew.
    std::function<void()> scontoLasciato;

    [[nodiscard]] const clsCalcoli& calcoli() const { return calcoli_; }
    [[nodiscard]] Currency totaleDocumento() const;  // to the cent, as it is shown
    [[nodiscard]] std::int32_t sconto() const;       // percent
    void setSconto(std::int32_t percento);
    void azzera();
    // Errore 9 for a sixth VAT code.
    void aggiorna(std::span<const RigaDocumento> righe);
    // False, after having told it under that title: a code of the rows has been deleted from the table since, and would
    // count as 0 %. To be asked after `aggiorna`.
    [[nodiscard]] bool CodiciIvaPresenti(const std::string& titolo) const;
    [[nodiscard]] Layout layout();

private:
    void mostra();
    Sessione& sessione_;
    clsCalcoli calcoli_;
};

}  // namespace bravona
