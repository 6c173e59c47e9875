#pragma once

#include <array>
#include <memory>

#include "platform/reports/Pages.h"
#include "platform/store/Recordset.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// Windows that hold every kind of control, laid out as the program's own are.

class FormaPrincipale final : public Form {
public:
    explicit FormaPrincipale(Desktop& desktop);
    std::string scelta;  // name of the last menu entry chosen
    int doppiClic = 0;

private:
    void onDblClick() override { ++doppiClic; }
};

class FormaDocumento final : public Form {
public:
    explicit FormaDocumento(Desktop& desktop);

    TabControl SSTabDocumento{{"&Intestazione", "&Corpo documento", "&Dati Spedizione", "&Scadenzario"}};
    Frame fraCliente{"Cliente"}, fraIntestazione{"Documento"}, fraCausale{"Causale DDT"}, fraDettagli{"Riga"},
        fraTotali{"Totali"}, fraNote{"Note"}, fraSpedizione{"Spedizione"};
    std::array<TextBox, 7> txtCliente{TextBox{40}, TextBox{40}, TextBox{40}, TextBox{40},
                                      TextBox{30}, TextBox{14}, TextBox{18}};
    std::array<TextBox, 3> txtScontoAssociato{TextBox{4}, TextBox{4}, TextBox{4}};
    Button cmdDestinazioneMerce{"..."}, cmdClear{"X"};
    ComboBox cmbRegistro, cmbListino, cmbUnitaMisura{true}, cmbIva, cmbSpedizione;
    TextBox txtNumeroDocumento{8};
    DatePicker dtpDataDocumento;
    TextBox txtEsenzioneIVA{40};
    Label lblEsenteIva;
    std::array<OptionButton, 5> optTipoBolla{OptionButton{"Vendita"}, OptionButton{"Reso"}, OptionButton{"Campione"},
                                             OptionButton{"Visione"}, OptionButton{"Altro"}};
    TextBox txtAltro{20};
    TextBox txtCodiceArticolo{14}, txtDescrizione{40}, txtQuantita{8}, txtPrezzo{12}, txtTotaleRiga{12};
    std::array<TextBox, 3> txtSconto{TextBox{4}, TextBox{4}, TextBox{4}};
    std::array<Button, 3> cmdDettagli{Button{"Aggiungi"}, Button{"Modifica"}, Button{"Elimina"}};
    ListView lvwDettagli;
    TextBox txtImponibile{14}, txtImportoIva{14}, txtTotale{14};
    TextBox txtNote{60};
    FlexGrid Griglia;
    std::array<TextBox, 2> casella{TextBox{12}, TextBox{12}};
    DatePicker DTPicker1;
    Button cmdRicalcola{"&Ricalcola Scadenze"};
    std::array<Button, 3> cmdDocumento{Button{"&Registra"}, Button{"Annulla"}, Button{"&Stampa"}};

private:
    void prepara();
    void disponi();
};

class FormaControlli final : public Form {
public:
    explicit FormaControlli(Desktop& desktop);

    Label lblTitolo{"Tutti i controlli"}, lblSuggerimento{"Un suggerimento in grigio"}, lblTotale{"€ 1.234,50"},
        lblGrande{"€ 240,00"}, lblRosso{"Scaduta"};
    TextBox txtLinea{24}, txtLocked{24}, txtDisabilitato{24}, txtCifre{12}, txtLungo{30};
    CheckBox chkAttivo{"&Visualizza note"}, chkSpento{"Spento"};
    OptionButton optUno{"&Uno"}, optDue{"&Due"};
    ComboBox cmbFisso, cmbLibero{true}, cmbEstraneo;
    DatePicker dtpData;
    TextBox txtGiorni{5};
    SpinButton spnGiorni;
    ListBox lstVoci;
    TreeView tvwArchivio;
    ListView lvwElenco, lvwVuota;
    DataGrid grdTabella;
    PictureBox picMarchio, picMancante;
    ScrollBar hsbImmagine, vsbImmagine{false};
    ProgressBar ProgressBar1;
    DriveList Drive1;
    DirList Dir1;
    FileList File1;
    Frame fraCampi{"Campi"}, fraElenchi{"Elenchi"}, fraFile{"File"};
    Button cmdPredefinito{"&Ok"}, cmdAnnulla{"&Chiudi"}, cmdSpento{"Disabilitato"};
    Recordset tabella;

private:
    void riempi();
    void disponi();
};

Pages paginaDimostrativa();

}  // namespace bravona
