#pragma once

#include <array>

#include "platform/store/Recordset.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// The firm's own data, and its banks in a grid that saves by itself as the person moves.
class frmInformazioniDitta final : public Form {
public:
    explicit frmInformazioniDitta(Sessione& sessione);

    // By position the first columns of `DatiAzienda`: two lines of the name, address, town, province, postcode,
    // telephone, fax, VAT number.
    std::array<TextBox, 9> txtAnagrafica{TextBox(45), TextBox(45), TextBox(45), TextBox(30), TextBox(4),
                                         TextBox(7),  TextBox(18), TextBox(18), TextBox(18)};
    Label lblStampa{"Sui documenti stampa:"};
    std::array<OptionButton, 2> optStampa{OptionButton("Dati azienda"), OptionButton("Immagine logo")};
    TextBox lblPercorsoImmagine{40};  // read only, for paths longer than its place
    Button cmdImmagine{"Immagi&ne..."};
    Button cmdLogo{"Logo per stampe.."};
    Frame fraBanche{"Banche"};
    DataGrid DataGrid1;
    std::array<Button, 2> Command1{Button("&Registra"), Button("&Chiudi")};

    bool Variato = false;  // something was typed into the sheet

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;
    void onUnload() override;

private:
    void disponi();
    void apriBanche();
    void CaricaDatiDitta();
    void RegistraDatiDitta();
    void scriviDati();
    void mostraPercorso(const std::string& percorso);
    void abilitaImmagine();
    Sessione& sessione_;
    Recordset banche_;
};

}  // namespace bravona
