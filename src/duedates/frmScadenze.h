#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "duedates/FiltriFatture.h"
#include "duedates/GrigliaScadenze.h"
#include "duedates/Scadenzario.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"
#include "session/ScadenzeInArrivo.h"
#include "session/Sessione.h"

namespace bravona {

// The due-date ledger: the instalments of the year's invoices and the free ones, filtered, edited cell by cell in the
// archive, printed. The check at the start loads it and asks for its count.
class frmScadenze final : public Form, public ScadenzeInArrivo {
public:
    explicit frmScadenze(Sessione& sessione);

    FiltriFatture filtri;
    Frame fraScadenze{"Scadenze"};
    CheckBox chkSaltato{"&Includi Saldate"};
    CheckBox chkNonSaltato{"Includi n&on Saldate"};
    CheckBox chkNonScadute{"Escludi non Scadute"};
    CheckBox chkinscadenza{"Includi in Scaden&za a"};
    TextBox Text1{5};
    GrigliaScadenze GrigliaScadenze1;
    Label lblTotaleDocumenti;
    Label lblTotaleImportoEuro;
    Button Command1{"A&ggiorna"};
    Button Command2{"Apri Fa&ttura"};
    Button cmdStampa{"&Stampa"};
    Button cmdOk{"&Chiudi"};

    void onLoad() override;
    [[nodiscard]] std::string TotaleDocumenti() const override { return lblTotaleDocumenti.caption(); }

    // Searches anew; the current instalment stays the current one where it is still listed.
    void AggiornaScadenze();

private:
    void disponi();
    void impostaColonne();
    [[nodiscard]] std::string CercaScadenze() const;
    [[nodiscard]] SceltaScadenze scelta() const;
    void mostra();
    void mostraTotali();
    void mostraUrgenza(int riga);
    void cambiaCella(int riga, int colonna);
    void salvaCella(int riga, int colonna);
    void ripristina(int riga);
    void nuovaRata(int riga);
    void eliminata(std::int32_t id);
    void ApriFattura();
    void Stampa();
    [[nodiscard]] VoceScadenzario& voce(int riga) { return voci_[static_cast<std::size_t>(riga) - 1]; }

    Sessione& sessione_;
    Label lblGiorni_{"gg."};
    Label lblScadute_, lblInScadenza_, lblFuture_;  // what the colours say
    std::int16_t giorni_ = 0;
    bool carica_ = false;
    std::vector<VoceScadenzario> voci_;  // of the grid's lines, as the archive has them
};

}  // namespace bravona
