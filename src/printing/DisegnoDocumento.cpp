#include "printing/DisegnoDocumento.h"

#include <algorithm>
#include <utility>

namespace bravona {

namespace {

constexpr double destra = 95;  // left edge of the right half, where the window of an envelope is
constexpr double larghezzaDestra = larghezzaUtile - destra;
constexpr double altezzaIntestazioni = 5;
constexpr double stacco = 1.5;           // between blocks
constexpr double altezzaRegistro = 8.6;  // from the top
constexpr double rientroCella = 0.9;
constexpr double rientroParte = 0.3;  // of columns that share a cell
constexpr double altezzaRigaIndirizzo = 4.8;
constexpr double altezzaVoceDitta = 4.2;
constexpr double larghezzaCap = 11;
constexpr double altezzaDatiLegali = 41.6;  // beneath the logo, level with the addressee

// The firm: a logo of 290 by 140 pixels in its natural size, or name, address and numbers as text.
void DisegnaAzienda(ReportSection& testata, const std::string& nomeProvincia)
{
    constexpr double larghezza = 88;
    auto& controlli = testata.controls;
    ReportControl logo;
    logo.kind = ReportControl::Kind::image;
    logo.name = "image1";
    logo.alias = "imgLogo";
    logo.visible = false;
    logo.width = mm(76.7);
    logo.height = mm(37);
    controlli.push_back(logo);
    controlli.push_back(Campo("Text11", "RagioneSociale", {0, 0, larghezza, 6.2}, {14, puntiMinimi, true}));
    controlli.push_back(Campo("Text19", "RagioneSociale2", {0, 6.6, larghezza, 4.8}, {10}));
    controlli.push_back(Campo("Text13", "azIndirizzo", {0, 12.6, larghezza, altezzaVoceDitta}, {9}));
    controlli.push_back(Etichetta("lblCap", {}, {0, 16.8, larghezzaCap, altezzaVoceDitta}, {9}));
    controlli.push_back(Campo("Text14", "azCitta", {0, 16.8, 45, altezzaVoceDitta}, {9}));
    // A caption is silent where the firm has nothing to put behind it.
    const auto voce = [&](const std::string& etichetta, const char* testo, const char* nome, const char* colonna,
                          double x, double y, double fine) {
        constexpr double parteDidascalia = 12.5;
        ReportControl didascalia = Etichetta(etichetta, testo, {x, y, parteDidascalia, altezzaVoceDitta}, {9});
        didascalia.onlyWith = colonna;
        controlli.push_back(std::move(didascalia));
        controlli.push_back(
            Campo(nome, colonna, {x + parteDidascalia, y, fine - x - parteDidascalia, altezzaVoceDitta}, {9}));
    };
    voce(nomeProvincia, "Prov.:", "Text68", "azProv", 47, 16.8, larghezza);
    voce("Label46", "Tel. :", "Text15", "azTelefono", 0, 21.6, 46);
    voce("Label10", "Fax:", "Text16", "azFax", 47, 21.6, larghezza);
    voce("Label45", "P. IVA :", "Text20", "azPartitaIva", 0, 26.4, larghezza);
    ReportControl legali = Etichetta("lblDatiLegali", {}, {0, altezzaDatiLegali, 62, altezzaVoceDitta}, {8});
    legali.visible = false;
    controlli.push_back(std::move(legali));
}

void DisegnaTitolo(ReportSection& sezione, const ParoleTestata& testata)
{
    auto& controlli = sezione.controls;
    controlli.push_back(
        Etichetta(testata.nomeTitolo, testata.titolo, {destra, 0, larghezzaDestra, 7.5}, {16, puntiMinimi, true}));
    if (testata.registro) {
        controlli.push_back(Etichetta("Label47", "Registro :", {destra, altezzaRegistro, 15, 4.2}, {8.5}));
        controlli.push_back(Etichetta("Registro", {}, {destra + 15, altezzaRegistro, 50, 4.2}, {8.5}));
    }
    constexpr double y = 14.5;
    constexpr double altezza = 11;
    const auto casella = [&](const char* nome, const std::string& didascalia, double x, double larghezza) {
        sezione.controls.push_back(Fondo({x, y, larghezza, 4}, grigioIntestazione));
        sezione.controls.push_back(Riquadro({x, y, larghezza, altezza}));
        sezione.controls.push_back(
            Etichetta(nome, didascalia, {x + 1, y, larghezza - 2, 4}, {7, puntiMinimi, true, Align::centre}));
    };
    const Stile valore{11, puntiMinimi, true, Align::centre};
    casella("Label9", testata.numero, destra, 35);
    controlli.push_back(Campo("Text6", "NumeroDoc", {destra + 1, y + 4.6, 33, 5.8}, valore));
    casella("Label7", "Data", destra + 35, 34);
    controlli.push_back(Campo("Text5", "DataF", {destra + 36, y + 4.6, 32, 5.8}, valore));
    casella("Label8", "Pag.", destra + 69, 26);
    controlli.push_back(
        Etichetta("Label12", testata.pagina, {destra + 70, y + 4.6, 24, 5.8}, {10, puntiMinimi, false, Align::centre}));
    // The number of the sheet at its foot.
    controlli.push_back(Campo("Text1", "IDdb", {85, altezzaUtile - 3.6, 20, 3.4},
                              {7, puntiMinimi, false, Align::centre, grigioDidascalia}));
}

// The address stands where a windowed envelope shows it, 55 to 80 mm from the sheet's upper edge.
void DisegnaDestinatario(ReportSection& testata)
{
    auto& controlli = testata.controls;
    controlli.push_back(Etichetta("Label1", "Spett.", {destra, 41.6, 30, 4.2},
                                  {8.5, puntiMinimi, false, Align::left, colours::black, true}));
    controlli.push_back(Campo("Text17", "Cliente", {destra, 46.6, larghezzaDestra - 5, 5.2}, {11, puntiMinimi, true}));
    controlli.push_back(
        Campo("Text12", "ClienteSecondaRiga", {destra, 51.8, larghezzaDestra - 5, altezzaRigaIndirizzo}, {10}));
    controlli.push_back(
        Campo("Text18", "Clienti.Indirizzo", {destra, 56.6, larghezzaDestra - 5, altezzaRigaIndirizzo}, {10}));
    controlli.push_back(
        Campo("Text21", "lblCittaProvincia", {destra, 61.4, larghezzaDestra - 5, altezzaRigaIndirizzo}, {10}));

    Casella(testata, "Label2", "Destinazione merce:", {0, 52.2, 86, 14});
    controlli.push_back(Campo("Text23", "lblDestinazioneMerceIndirizzo", {1.2, 56.4, 83.6, 4.6}, {9.5}));
    controlli.push_back(Campo("Text24", "lblDestinazioneMerceCitta", {1.2, 61, 83.6, 4.6}, {9.5}));
    // Where the sheet is folded for the envelope.
    controlli.push_back(Filo(-6, 91, 3, 0, grigioRiga, 6));
}

void DisegnaDatiCliente(ReportSection& testata, bool pagamento)
{
    constexpr double y = 70;
    constexpr double altezza = 9.6;
    constexpr double larghezza = 64;
    auto& controlli = testata.controls;
    Casella(testata, "Label6", "Partita IVA - Codice Fiscale", {0, y, larghezza, altezza});
    controlli.push_back(Campo("Text3", "PartitaIva", {1.2, y + 4, 24, 5}, {9}));
    controlli.push_back(Campo("Text4", "CodiceFiscale", {26.4, y + 4, larghezza - 27.6, 5}, {9}));
    if (pagamento) {
        const double resto = (larghezzaUtile - larghezza) / 2;
        Casella(testata, "Label25", "Modalità pagamento", {larghezza, y, resto, altezza});
        controlli.push_back(Campo("Text60", "ModalitaPagamento", {larghezza + 1.2, y + 4, resto - 2.4, 5}, {9}));
        Casella(testata, "Label26", "Banca d'appoggio", {larghezza + resto, y, resto, altezza});
        controlli.push_back(Campo("Text61", "Banca", {larghezza + resto + 1.2, y + 4, resto - 2.4, 5}, {9}));
    }
}

}  // namespace

void DisegnaTestata(Report& report, const ParoleTestata& testata)
{
    ReportSection& sezione = report["H"];
    sezione.height = mm(altezzaTestata);
    DisegnaAzienda(sezione, testata.nomeProvincia);
    DisegnaTitolo(sezione, testata);
    DisegnaDestinatario(sezione);
    DisegnaDatiCliente(sezione, testata.pagamento);
}

void ImpostaDestinatario(ReportSection& testata, bool secondaRiga)
{
    if (!secondaRiga) {
        testata["Text18"].top -= mm(altezzaRigaIndirizzo);
        testata["Text21"].top -= mm(altezzaRigaIndirizzo);
    }
}

void ImpostaCap(ReportSection& testata, const DatiDitta& ditta)
{
    if (ditta.Cap.empty() || ditta.Citta.starts_with(ditta.Cap)) {
        return;
    }
    testata["lblCap"].caption = ditta.Cap;
    ReportControl& citta = testata["Text14"];
    citta.left += mm(larghezzaCap);
    citta.width -= mm(larghezzaCap);
}

void ImpostaDatiLegali(ReportSection& testata, const DatiDitta& ditta)
{
    ReportControl& legali = testata["lblDatiLegali"];
    legali.caption = ditta.RagioneSocialeRiga1;
    if (!ditta.PartitaIva.empty()) {
        legali.caption += (legali.caption.empty() ? "P. IVA : " : " - P. IVA : ") + ditta.PartitaIva;
    }
    legali.visible = true;
    const int scritto = std::min(legali.width, textWidth(legali.caption, legali.points, legali.bold));
    int x = legali.caption.empty() ? 0 : scritto + mm(3);
    for (ReportControl& controllo : testata.controls) {
        if (controllo.onlyWith == "azProv" || controllo.column == "azProv") {
            controllo.left = x;
            controllo.top = legali.top;
            controllo.points = legali.points;
            controllo.width = mm(9);
            x += controllo.width;
        }
    }
}

void DisegnaRighe(Report& report, const std::vector<ColonnaRighe>& colonne, int righe, double altezzaRiga, double punti)
{
    ReportSection& testata = report["H"];
    ReportSection& dettaglio = report["D"];
    dettaglio.height = mm(altezzaRiga);
    const double y = altezzaTestata - altezzaIntestazioni;
    const int altezza = mm(altezzaIntestazioni) + righe * dettaglio.height;
    double x = 0;
    for (const ColonnaRighe& colonna : colonne) {
        testata.controls.push_back(Intestazione(colonna.etichetta, colonna.testo,
                                                {x, y, colonna.larghezza, altezzaIntestazioni}, colonna.intestazione));
        const double parte = colonna.larghezza / static_cast<double>(colonna.colonne.size());
        const double rientro = colonna.colonne.size() > 1 ? rientroParte : rientroCella;
        for (std::size_t i = 0; i < colonna.colonne.size(); ++i) {
            const double inizio = x + parte * static_cast<double>(i);
            dettaglio.controls.push_back(Campo(colonna.colonne[i],
                                               {inizio + rientro, 0, parte - 2 * rientro, altezzaRiga},
                                               {punti, puntiMinimi, false, colonna.allineamento}));
        }
        x += colonna.larghezza;
    }
    // Rules over the headings and all rows, in one stroke each.
    x = 0;
    for (const ColonnaRighe& colonna : colonne) {
        if (x > 0) {
            ReportControl filo = Filo(x, y, 0, 0);
            filo.height = altezza;
            testata.controls.push_back(filo);
        }
        x += colonna.larghezza;
    }
    ReportControl cornice = Riquadro({0, y, larghezzaUtile, altezzaIntestazioni});
    testata.controls.push_back(cornice);
    cornice.height = altezza;
    testata.controls.push_back(cornice);
    // The foot of the frame, over the hair line of the last row.
    report["F"].controls.push_back(Filo(0, 0, larghezzaUtile, 0));
    // The page of the row: part of it, but not for the reader.
    ReportControl pagina = Campo("IDdb", Posto{0, 0, 10, altezzaRiga}, Stile{punti});
    pagina.visible = false;
    dettaglio.controls.push_back(pagina);
    dettaglio.controls.push_back(Filo(0, altezzaRiga, larghezzaUtile, 0, grigioRiga, 5));
}

double DisegnaRiepilogoETotali(ReportSection& piede, double y, const std::string& nomeTotale,
                               const std::string& titoloTotale)
{
    constexpr double altezzaRiga = 4.3;
    constexpr double altezzaTitolo = 4.5;
    constexpr int aliquote = 5;
    constexpr double altezza = altezzaTitolo + aliquote * altezzaRiga;
    auto& controlli = piede.controls;

    struct Voce {
        const char* etichetta;
        const char* testo;
        const char* colonna;
        double larghezza;
        Align allineamento;
    };
    constexpr Voce voci[] = {
        {"lblCodiceIva", "C.IVA", "CodiceIva", 11, Align::centre},
        {"lblDescrizioneIva", "Descrizione codice IVA", "DescrizioneIva", 50, Align::left},
        {"lblAliquotaIva", "IVA %", "AliquotaIva", 11, Align::centre},
        {"lblImponibileIva", "Imponibile € ", "ImponibileIva", 25, Align::right},
        {"lblImportoIva", "Importo IVA € ", "ImportoIva", 25, Align::right},
    };
    double x = 0;
    for (const Voce& voce : voci) {
        controlli.push_back(Intestazione(voce.etichetta, voce.testo, {x, y, voce.larghezza, altezzaTitolo},
                                         voce.allineamento == Align::right ? Align::right : Align::centre));
        for (int i = 0; i < aliquote; ++i) {
            controlli.push_back(Campo(
                voce.colonna + std::to_string(i + 1),
                {x + rientroCella, y + altezzaTitolo + i * altezzaRiga, voce.larghezza - 2 * rientroCella, altezzaRiga},
                {8.5, puntiMinimi, false, voce.allineamento}));
        }
        if (x > 0) {
            controlli.push_back(Filo(x, y, 0, altezza));
        }
        x += voce.larghezza;
    }
    controlli.push_back(Riquadro({0, y, x, altezzaTitolo}));
    controlli.push_back(Riquadro({0, y, x, altezza}));

    // The totals, the document's own the most visible of all.
    const double sinistra = x + 2;
    const double larghezza = larghezzaUtile - sinistra;
    constexpr double altezzaTotale = 8.4;
    constexpr double altezzaVoce = (altezza - altezzaTitolo - altezzaTotale) / 3;
    controlli.push_back(Intestazione(nomeTotale, titoloTotale, {sinistra, y, larghezza, altezzaTitolo}, Align::right));
    const auto riga = [&](const char* nome, const char* testo, const char* colonna, double da, double alta,
                          const Stile& didascalia, const Stile& valore, double parteDidascalia) {
        controlli.push_back(Etichetta(nome, testo, {sinistra + 1.5, da, parteDidascalia, alta}, didascalia));
        controlli.push_back(
            Campo(colonna, {sinistra + 1.5 + parteDidascalia + 1, da, larghezza - parteDidascalia - 4, alta}, valore));
    };
    double da = y + altezzaTitolo;
    riga("lblImponibile", "Imponibile", "TotaleIvaEsclusa", da, altezzaVoce, {8.5},
         {9.5, puntiMinimi, false, Align::right}, 22);
    da += altezzaVoce;
    riga("lblTotaleIva", "Totale IVA", "ImportoTotaleIva", da, altezzaVoce, {8.5},
         {9.5, puntiMinimi, false, Align::right}, 22);
    da += altezzaVoce;
    controlli.push_back(Fondo({sinistra, da, larghezza, altezzaTotale}, grigioFondo));
    controlli.push_back(Filo(sinistra, da, larghezza, 0));
    controlli.push_back(Filo(sinistra, da + altezzaTotale, larghezza, 0));
    riga("lblTotaleFattura", "Totale fattura", "TotaleDocumento", da, altezzaTotale, {9, puntiMinimi, true},
         {15, 9, true, Align::right}, 22);
    da += altezzaTotale;
    riga("lblTotaleLire", "(Totale Lire)", "txtTotaleLire", da, altezzaVoce,
         {7.5, puntiMinimi, false, Align::left, grigioDidascalia},
         {7.5, puntiMinimi, false, Align::right, grigioDidascalia}, 22);
    controlli.push_back(Riquadro({sinistra, y, larghezza, altezzaTitolo}));
    controlli.push_back(Riquadro({sinistra, y, larghezza, altezza}));
    return y + altezza + stacco;
}

double DisegnaTrasporto(ReportSection& piede, double y, int vettori)
{
    constexpr double altezza = 9.4;
    Casella(piede, "lblTrasporto", "Trasporto a cura", {0, y, 38, altezza}, "SpedizioneAMezzo");
    Casella(piede, "lblPorto", "Porto", {38, y, 30, altezza}, "Porto");
    Casella(piede, "lblCausale", "Causale trasporto", {68, y, 46, altezza}, "CausaleTrasporto");
    Casella(piede, "lblAspetto", "Aspetto beni", {114, y, 40, altezza}, "ColliAspetto");
    Casella(piede, "lblColli", "N. colli", {154, y, 16, altezza}, "ColliNumero", {9, puntiMinimi, false, Align::right});
    Casella(piede, "lblPeso", "Peso (kg)", {170, y, 20, altezza}, "Peso", {9, puntiMinimi, false, Align::right});
    y += altezza;
    for (int i = 0; i < vettori; ++i) {
        const std::string numero = i == 0 ? std::string() : std::to_string(i + 1);
        // Only the first line of carriers bears the caption.
        Casella(piede, "lblVettori" + numero, i == 0 ? " Vettori" : "", {0, y, 96, altezza});
        Casella(piede, "lblDataRitiro" + numero, "Data ritiro", {96, y, 26, altezza});
        Casella(piede, "lblOra" + numero, "Ora", {122, y, 18, altezza});
        Casella(piede, "lblFirmaVettore" + numero, i == 0 ? "Firma vettore" : "", {140, y, 50, altezza});
        y += altezza;
    }
    return y;
}

double DisegnaFirme(ReportSection& piede, double y, const ParoleFirme& firme)
{
    Casella(piede, firme.nomeVariazioni, firme.variazioni, {0, y, 90, firme.altezza});
    Casella(piede, "lblFirmaConducente", "Firma conducente", {90, y, 50, firme.altezza});
    Casella(piede, "lblFirmaDestinatario", "Firma destinatario", {140, y, 50, firme.altezza});
    return y + firme.altezza;
}

void DisegnaSegue(ReportSection& piede, double y)
{
    piede.controls.push_back(Campo("SEGUE", {130, y + 0.4, 60, 5}, {13, puntiMinimi, true, Align::right}));
    piede.height = mm(y + 5.6);
}

std::vector<ColonnaRighe> ColonneFattura(const ParoleRighe& parole)
{
    return {
        {"Label13", " Codice articolo", 24, Align::left, Align::left, {"CodiceArticolo"}},
        {"Label14", " Descrizione articolo", 71, Align::left, Align::left, {"Descrizione"}},
        {"Label15", "UM", 8, Align::centre, Align::centre, {"UnitaMisura"}},
        {"Label16", parole.quantita, 18, Align::centre, Align::right, {"Quantita"}},
        {"Label27", parole.prezzo, 20, Align::centre, Align::right, {"PrezzoUnitario"}},
        {"Label30", "Sconti %", 22, Align::centre, Align::centre, {"Sconto1", "Sconto2", "Sconto3"}},
        {"Label31", "Iva", 7, Align::centre, Align::centre, {"CodiceIva"}},
        {"Label32", parole.totaleRiga, 20, Align::right, Align::right, {"TotaleRiga"}},
    };
}

}  // namespace bravona
