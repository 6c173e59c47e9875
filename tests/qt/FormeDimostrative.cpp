#include "FormeDimostrative.h"

#include "platform/windowing/Layout.h"

namespace bravona {

using namespace layout;

namespace {

ListRow rigaElenco(std::string testo, std::string chiave, const std::vector<std::string>& celle)
{
    ListRow riga;
    riga.text = std::move(testo);
    riga.key = std::move(chiave);
    for (const std::string& cella : celle) {
        riga.sub.push_back({cella, {}});
    }
    return riga;
}

DataColumn colonna(const char* campo, int larghezza, Align lato = Align::left, bool pulsante = false)
{
    DataColumn una;
    una.field = campo;
    una.width = larghezza;
    una.align = lato;
    una.button = pulsante;
    return una;
}

}  // namespace

// --- main window

FormaPrincipale::FormaPrincipale(Desktop& desktop) : Form(desktop, "frmMain", "Bravona", WindowStyle::main)
{
    menuBar = std::make_unique<Menu>();
    Menu& file = menuBar->add("mnuFile", "&File");
    const auto voce = [this](Menu& menu, const char* nome, const char* testo) -> Menu& {
        return menu.add(nome, testo, [this, nome] { scelta = nome; });
    };
    voce(file, "mnuApri", "&Apri archivio");
    Menu& tabelle = file.add("mnuTabelle", "Tabelle");
    voce(tabelle, "mnuComuni", "&Gestione Comuni");
    voce(tabelle, "mnuGruppi", "Gruppi");
    voce(tabelle, "mnuNascosta", "Note documenti").visible = false;
    file.addSeparator();
    voce(file, "mnuEsci", "&Esci").shortcut = "Ctrl+Q";
    Menu& documenti = menuBar->add("mnuDocumenti", "&Documenti");
    voce(documenti, "mnuNuovo", "&Nuovo documento").shortcut = "Ctrl+N";
    voce(documenti, "mnuSpenta", "&Ristampa").enabled = false;
    statusBar = std::make_unique<StatusBar>();
    statusBar->panels = {"Gestione anno 2004", "dbbveuro.mdb", "Fattura 12 registrata"};
    setLayout(column({}));
}

// --- document entry

FormaDocumento::FormaDocumento(Desktop& desktop) : Form(desktop, "frmDocumento", "Fattura Immediata / Accompagnatoria")
{
    prepara();
    disponi();
}

void FormaDocumento::prepara()
{
    add("SSTabDocumento", SSTabDocumento);
    add("fraCliente", fraCliente);
    add("txtCliente", txtCliente);
    add("txtScontoAssociato", txtScontoAssociato);
    add("cmdDestinazioneMerce", cmdDestinazioneMerce);
    add("cmdClear", cmdClear);
    add("fraIntestazione", fraIntestazione);
    add("cmbRegistro", cmbRegistro);
    add("txtNumeroDocumento", txtNumeroDocumento);
    add("dtpDataDocumento", dtpDataDocumento);
    add("txtEsenzioneIVA", txtEsenzioneIVA);
    add("lblEsenteIva", lblEsenteIva);
    add("fraCausale", fraCausale);
    add("optTipoBolla", optTipoBolla);
    add("txtAltro", txtAltro);
    add("fraDettagli", fraDettagli);
    add("txtCodiceArticolo", txtCodiceArticolo);
    add("txtDescrizione", txtDescrizione);
    add("txtQuantita", txtQuantita);
    add("cmbListino", cmbListino);
    add("txtPrezzo", txtPrezzo);
    add("txtSconto", txtSconto);
    add("txtTotaleRiga", txtTotaleRiga);
    add("cmbUnitaMisura", cmbUnitaMisura);
    add("cmbIva", cmbIva);
    add("cmdDettagli", cmdDettagli);
    add("lvwDettagli", lvwDettagli);
    add("fraTotali", fraTotali);
    add("txtImponibile", txtImponibile);
    add("txtImportoIva", txtImportoIva);
    add("txtTotale", txtTotale);
    add("fraNote", fraNote);
    add("fraSpedizione", fraSpedizione);
    add("cmbSpedizione", cmbSpedizione);
    add("txtNote", txtNote);
    add("Griglia", Griglia);
    add("casella", casella);
    add("DTPicker1", DTPicker1);
    add("cmdRicalcola", cmdRicalcola);
    add("cmdDocumento", cmdDocumento);

    txtCliente[0].setText("Rossi Mario & C. s.n.c.");
    txtCliente[0].grows = true;
    txtCliente[1].grows = txtCliente[2].grows = txtCliente[3].grows = true;
    txtCliente[2].setText("Via Po, 1");
    txtCliente[3].setText("IDEM");
    txtCliente[4].setText("10100 Torino (TO)");
    for (TextBox& sconto : txtScontoAssociato) {
        sconto.setLocked(true);
        sconto.align = Align::right;
        sconto.setText("0");
    }
    cmdDestinazioneMerce.setToolTip("Seleziona la destinazione merce");
    cmdClear.setToolTip("Azzera la destinazione merce");
    cmbRegistro.addItem("Principale", 1);
    cmbRegistro.addItem("Secondo", 2);
    cmbRegistro.setListIndex(0);
    txtNumeroDocumento.setText("12");
    txtNumeroDocumento.align = Align::right;
    dtpDataDocumento.setDate(*Date::fromYmd(2004, 1, 15));
    txtEsenzioneIVA.multiLine = true;
    txtEsenzioneIVA.lines = 2;
    lblEsenteIva.setCaption("ESENTE I.V.A.");
    lblEsenteIva.setForeColour(colours::red);
    optTipoBolla[0].choose();
    cmbListino.width = 4;
    cmbUnitaMisura.width = 6;
    cmbIva.width = 10;
    cmbIva.addItem("A - 20%", 10);
    cmbIva.setListIndex(0);
    cmbListino.addItem("1", 1);
    cmbListino.setListIndex(0);
    cmbUnitaMisura.addItem("Pz");
    cmbUnitaMisura.setText("Pz");
    txtDescrizione.grows = true;
    for (TextBox* cifra : {&txtQuantita, &txtPrezzo, &txtTotaleRiga, &txtImponibile, &txtImportoIva, &txtTotale}) {
        cifra->align = Align::right;
    }
    txtTotaleRiga.setLocked(true);
    txtImponibile.setLocked(true);
    txtImportoIva.setLocked(true);
    txtTotale.setLocked(true);
    txtImponibile.setText("€ 200,00");
    txtImportoIva.setText("€ 40,00");
    txtTotale.setText("€ 240,00");
    txtImportoIva.style = txtImponibile.style = TextStyle::normal;
    txtTotale.style = TextStyle::grand;
    lvwDettagli.setColumns({{"Codice", "", 1300},
                            {"Descrizione", "", 4000},
                            {"Q.tà", "", 900, Align::right},
                            {"Prezzo", "", 1300, Align::right},
                            {"Sconto", "", 700, Align::right},
                            {"Totale", "", 1400, Align::right},
                            {"Iva", "", 500, Align::centre}});
    lvwDettagli.add(rigaElenco(
        "A1", "1r",
        {"Vite a testa svasata 4x40 zincata, confezione da 200 pezzi", "2", "100,00", "0", "€ 200,00", "A"}));
    ListRow commento = rigaElenco("***", "2c", {"Consegna a vostra cura", "-", "-", "-", "-", "-"});
    commento.tag = "-5";
    commento.colour = colours::blue;
    lvwDettagli.add(commento);
    for (int i = 0; i < 20; ++i) {
        const std::string numero = std::to_string(i);
        lvwDettagli.add(rigaElenco("B" + numero, std::to_string(i + 3) + "r",
                                   {"Dado esagonale M" + numero, numero, "1,50", "0", "€ 12,00", "A"}));
    }
    lvwDettagli.select(0);
    txtNote.multiLine = true;
    txtNote.lines = 4;
    txtNote.setText("Prima riga\nSeconda riga");
    cmbSpedizione.addItem("Mittente");
    cmbSpedizione.addItem("Destinatario");
    cmbSpedizione.addItem("Vettore");
    cmbSpedizione.setListIndex(1);

    Griglia.setRows(4);
    Griglia.setCols(6);
    const char* intestazioni[] = {"Pagato", "Scadenza", "Avere", "Dare", "Saldo", "Data pag."};
    for (int col = 0; col < 6; ++col) {
        Griglia.setText(0, col, intestazioni[col]);
        Griglia.setColAlignment(col, col >= 2 && col <= 4 ? 7 : col == 0 ? 4 : 1);
        Griglia.setColWidth(col, col == 0 ? 800 : 1500);
    }
    for (int row = 1; row < 4; ++row) {
        Griglia.setPicture(row, 0, row == 1 ? FlexGrid::Picture::paid : FlexGrid::Picture::unpaid);
        Griglia.setText(row, 1, "31/0" + std::to_string(row) + "/2004");
        Griglia.setText(row, 2, "€ 80,00");
        Griglia.setText(row, 4, "€ 80,00");
    }
    Griglia.setRowColour(3, colours::red);
    casella[0].align = casella[1].align = Align::right;
    casella[0].setVisible(false);
    casella[1].setVisible(false);
    DTPicker1.setVisible(false);
    setDefaultButton(nullptr);
}

void FormaDocumento::disponi()
{
    const auto cliente = frame(
        fraCliente,
        form({line("Ragione &sociale (R)  Premi F3 per la Ricerca", of(txtCliente[0])), line("", of(txtCliente[1])),
              line("Indirizzo", of(txtCliente[2])),
              line("Destinazione merce", row({of(txtCliente[3]), of(cmdDestinazioneMerce), of(cmdClear)})),
              line("Citta e Provincia", of(txtCliente[4])),
              line("Partita IVA", row({of(txtCliente[5]), line("Codice Fiscale", of(txtCliente[6]))})),
              line("Sconti", row({of(txtScontoAssociato[0]), of(txtScontoAssociato[1]), of(txtScontoAssociato[2])}))}));
    const auto intestazione =
        frame(fraIntestazione, form({line("Registro", of(cmbRegistro)),
                                     line("&Numero", row({of(txtNumeroDocumento), line("Data", of(dtpDataDocumento))})),
                                     line("Esenzione IVA", of(txtEsenzioneIVA)), line("", of(lblEsenteIva))}));
    const auto causale = frame(fraCausale, row({of(optTipoBolla[0]), of(optTipoBolla[1]), of(optTipoBolla[2]),
                                                of(optTipoBolla[3]), of(optTipoBolla[4]), of(txtAltro)}));
    const auto riga = frame(
        fraDettagli,
        column({row({line("C&odice", of(txtCodiceArticolo)), line("Descrizione", of(txtDescrizione)),
                     line("U.M.", of(cmbUnitaMisura))}),
                row({line("Q.tà", of(txtQuantita)), line("Listino", of(cmbListino)), line("Prezzo", of(txtPrezzo)),
                     line("Sconti", row({of(txtSconto[0]), of(txtSconto[1]), of(txtSconto[2])})),
                     line("Totale", of(txtTotaleRiga)), line("Iva", of(cmbIva))}),
                row({of(cmdDettagli[0]), of(cmdDettagli[1]), of(cmdDettagli[2])})}));
    const auto totali =
        frame(fraTotali, rowEnd({line("Imponibile IVA", of(txtImponibile)), line("Importo IVA", of(txtImportoIva)),
                                 line("Totale", of(txtTotale))}));
    const auto spedizione = column(
        {frame(fraNote, of(txtNote)), frame(fraSpedizione, form({line("Spedizione a mezzo", of(cmbSpedizione))}))});
    setLayout(column({grow(tabs(SSTabDocumento, {column({cliente, intestazione, causale}),
                                                 column({riga, grow(of(lvwDettagli)), totali}), spedizione,
                                                 column({grow(of(Griglia)), rowEnd({of(cmdRicalcola)})})})),
                      rowEnd({of(cmdDocumento[0]), of(cmdDocumento[1]), of(cmdDocumento[2])})}));
}

// --- every kind of control

FormaControlli::FormaControlli(Desktop& desktop) : Form(desktop, "frmControlli", "Controlli")
{
    riempi();
    disponi();
    setDefaultButton(&cmdPredefinito);
    setCancelButton(&cmdAnnulla);
}

void FormaControlli::riempi()
{
    const auto aggiungi = [this](const char* nome, Control& control) { add(nome, control); };
    aggiungi("lblTitolo", lblTitolo);
    aggiungi("lblSuggerimento", lblSuggerimento);
    aggiungi("lblTotale", lblTotale);
    aggiungi("lblGrande", lblGrande);
    aggiungi("lblRosso", lblRosso);
    aggiungi("txtLinea", txtLinea);
    aggiungi("txtLocked", txtLocked);
    aggiungi("txtDisabilitato", txtDisabilitato);
    aggiungi("txtCifre", txtCifre);
    aggiungi("txtLungo", txtLungo);
    aggiungi("chkAttivo", chkAttivo);
    aggiungi("chkSpento", chkSpento);
    aggiungi("optUno", optUno);
    aggiungi("optDue", optDue);
    aggiungi("cmbFisso", cmbFisso);
    aggiungi("cmbLibero", cmbLibero);
    aggiungi("cmbEstraneo", cmbEstraneo);
    aggiungi("dtpData", dtpData);
    aggiungi("txtGiorni", txtGiorni);
    aggiungi("spnGiorni", spnGiorni);
    aggiungi("lstVoci", lstVoci);
    aggiungi("tvwArchivio", tvwArchivio);
    aggiungi("lvwElenco", lvwElenco);
    aggiungi("lvwVuota", lvwVuota);
    aggiungi("grdTabella", grdTabella);
    aggiungi("picMarchio", picMarchio);
    aggiungi("picMancante", picMancante);
    aggiungi("hsbImmagine", hsbImmagine);
    aggiungi("vsbImmagine", vsbImmagine);
    aggiungi("ProgressBar1", ProgressBar1);
    aggiungi("Drive1", Drive1);
    aggiungi("Dir1", Dir1);
    aggiungi("File1", File1);
    aggiungi("fraCampi", fraCampi);
    aggiungi("fraElenchi", fraElenchi);
    aggiungi("fraFile", fraFile);
    aggiungi("cmdPredefinito", cmdPredefinito);
    aggiungi("cmdAnnulla", cmdAnnulla);
    aggiungi("cmdSpento", cmdSpento);

    lblTitolo.style = TextStyle::title;
    lblSuggerimento.style = TextStyle::hint;
    lblTotale.style = TextStyle::total;
    lblGrande.style = TextStyle::grand;
    lblRosso.setForeColour(colours::red);
    txtLinea.setText("Testo");
    txtLocked.setText("Sola lettura");
    txtLocked.setLocked(true);
    txtDisabilitato.setText("Disabilitato");
    txtDisabilitato.setEnabled(false);
    txtCifre.setText("1.234,50");
    txtCifre.align = Align::right;
    txtLungo.multiLine = true;
    txtLungo.lines = 3;
    txtLungo.fixedPitch = true;
    txtLungo.setText("Carattere a spaziatura\nfissa");
    chkAttivo.setChecked(true);
    optDue.choose();
    for (const char* voce : {"Principale", "Secondo", "Terzo"}) {
        cmbFisso.addItem(voce);
        cmbLibero.addItem(voce);
        cmbEstraneo.addItem(voce);
        lstVoci.addItem(voce);
    }
    cmbFisso.setListIndex(1);
    cmbLibero.setText("Testo libero");
    cmbEstraneo.setText("Non in elenco");
    lstVoci.setListIndex(0);
    lstVoci.lines = 4;
    dtpData.setDate(*Date::fromYmd(2004, 1, 15));
    txtGiorni.setText("30");
    spnGiorni.buddy = &txtGiorni;
    tvwArchivio.add("", "c7", "Rossi");
    tvwArchivio.add("c7", "m017", "Gennaio");
    tvwArchivio.add("c7", "m027", "Febbraio");
    tvwArchivio.add("", "c8", "Bianchi");
    tvwArchivio.setBold("c7", true);
    tvwArchivio.setExpanded(0, true);
    lvwElenco.checkBoxes = true;
    lvwElenco.sortable = true;
    lvwElenco.setColumns({{"Cliente", "", 2400}, {"Data", "", 1200}, {"Importo", "", 1400, Align::right}});
    ListRow rossi = rigaElenco("Rossi", "x1", {"15/01/2004", "240,00"});
    rossi.bold = true;
    rossi.checked = true;
    ListRow bianchi = rigaElenco("Bianchi", "x2", {"02/02/2004", "1.050,00"});
    bianchi.colour = colours::red;
    ListRow verdi = rigaElenco("Verdi", "x3", {"20/12/2003", "9,90"});
    verdi.colour = rgb(0, 128, 0);
    lvwElenco.append({rossi, bianchi, verdi});
    lvwElenco.lines = 5;
    lvwVuota.setColumns({{"Descrizione", "", 3000}});
    lvwVuota.emptyText = "Nessun documento";
    lvwVuota.lines = 5;
    tabella = Recordset::declare(DeclaredSet{{{"Codice"}, {"Descrizione"}, {"Aliquota"}}, {}});
    for (const auto& [codice, descrizione, aliquota] :
         {std::tuple{"A", "Ordinaria", "20"}, std::tuple{"B", "Ridotta", "10"}, std::tuple{"E", "Esente", "0"}}) {
        tabella.addNew();
        tabella["Codice"] = codice;
        tabella["Descrizione"] = descrizione;
        tabella["Aliquota"] = aliquota;
        tabella.update();
    }
    tabella.moveFirst();
    grdTabella.setColumns(
        {colonna("Codice", 900), colonna("Descrizione", 2600), colonna("Aliquota", 1000, Align::right, true)});
    grdTabella.bind(&tabella);
    picMarchio.boxWidth = picMarchio.boxHeight = 130;
    picMarchio.load("bravona");
    picMancante.boxWidth = 160;
    picMancante.boxHeight = 130;
    picMancante.failureText = "Immagine non disponibile";
    picMancante.load("images/manca.gif");
    hsbImmagine.setRange(0, 100);
    hsbImmagine.setValue(30);
    vsbImmagine.setRange(0, 100);
    ProgressBar1.setValue(40);
    cmdSpento.setEnabled(false);
}

void FormaControlli::disponi()
{
    const auto campi =
        frame(fraCampi,
              form({line("&Linea", of(txtLinea)), line("Sola lettura", of(txtLocked)),
                    line("Spento", of(txtDisabilitato)), line("&Importo", of(txtCifre)), line("Testo", of(txtLungo)),
                    line("Fisso", of(cmbFisso)), line("Libero", of(cmbLibero)), line("Estraneo", of(cmbEstraneo)),
                    line("Data", of(dtpData)), line("Giorni", row({of(txtGiorni), of(spnGiorni)})),
                    line("", column({of(chkAttivo), of(chkSpento), row({of(optUno), of(optDue)})})),
                    line("Totale", row({of(lblTotale), of(lblGrande), of(lblRosso)}))}));
    const auto elenchi =
        frame(fraElenchi, column({row({of(lstVoci), of(tvwArchivio)}), of(lvwElenco), of(lvwVuota), of(grdTabella)}));
    const auto file = frame(
        fraFile, column({of(Drive1), row({of(Dir1), of(File1)}),
                         row({of(picMarchio), of(vsbImmagine), of(picMancante)}), of(hsbImmagine), of(ProgressBar1)}));
    setLayout(
        column({row({of(lblTitolo), stretch(), of(lblSuggerimento)}), grow(row({campi, grow(elenchi, 2), grow(file)})),
                rowEnd({of(cmdSpento), of(cmdPredefinito), of(cmdAnnulla)})}));
}

// --- a page

namespace {

TextPrimitive testo(int x, int y, int width, int height, std::string cosa, double points = 9, bool bold = false,
                    Align align = Align::left)
{
    TextPrimitive uno;
    uno.x = x;
    uno.y = y;
    uno.width = width;
    uno.height = height;
    uno.text = std::move(cosa);
    uno.points = points;
    uno.bold = bold;
    uno.align = align;
    return uno;
}

}  // namespace

Pages paginaDimostrativa()
{
    Pages pages;
    Page page;
    BoxPrimitive riquadro;
    riquadro.x = riquadro.y = 567;
    riquadro.width = 10772;
    riquadro.height = 1400;
    riquadro.filled = true;
    riquadro.fill = rgb(240, 240, 240);
    riquadro.radius = 120;
    page.primitives.push_back(riquadro);
    page.primitives.push_back(testo(700, 700, 6000, 500, "Ditta Esempio s.r.l.", 16, true));
    page.primitives.push_back(testo(700, 1300, 6000, 300, "Via Po, 1 - 10100 Torino", 10));
    LinePrimitive linea;
    linea.x1 = 567;
    linea.x2 = 11339;
    linea.y1 = linea.y2 = 2400;
    page.primitives.push_back(linea);
    for (int riga = 0; riga < 30; ++riga) {
        const int y = 2500 + riga * 300;
        page.primitives.push_back(testo(600, y, 5000, 280, "Articolo numero " + std::to_string(riga + 1)));
        page.primitives.push_back(
            testo(9000, y, 2300, 280, std::to_string(riga * 7 + 3) + ",50", 9, false, Align::right));
        TextPrimitive segno = testo(8000, y, 400, 280, riga % 3 == 0 ? "Ö" : "");
        segno.symbol = true;
        page.primitives.push_back(segno);
    }
    page.primitives.push_back(testo(7000, 12000, 4300, 500, "Totale € 1.234,50", 14, true, Align::right));
    pages.pages.push_back(page);
    pages.pages.push_back(page);
    return pages;
}

}  // namespace bravona
