#include "printing/modElenchi.h"

#include <utility>

#include "platform/preview/frmAnteprima.h"
#include "platform/text/Text.h"
#include "printing/arptElencoClientivb.h"
#include "printing/arptListinovb.h"

namespace bravona {

namespace {

void StampaElenco(Sessione& sessione, const std::string& titolo, const std::string& interrogazione)
{
    Report report = arptElencoClientivb();
    report.windowTitle = "Bravona - Anteprima " + titolo;
    report["H"]["Label1"].caption = titolo;
    MostraElenco(sessione, std::move(report), sessione.cn.open(interrogazione), nomeFile({titolo}));
}

}  // namespace

void MostraElenco(Sessione& sessione, Report report, Recordset dati, const std::string& nomeFile)
{
    const std::string titolo = report.windowTitle;
    Pages pagine = componiSuRichiesta(std::move(report), std::move(dati), sessione.clock().today());
    mostraAnteprima(sessione.desktop(), titolo, std::move(pagine), nomeFile, false);
    sessione.desktop().processEvents();
}

void StampaElencoClienti(Sessione& sessione)
{
    StampaElenco(sessione, "Elenco Clienti",
                 "SELECT * FROM Clienti Where Tipo <> 'F' or Tipo is Null ORDER BY Cliente");
}

void StampaElencoFornitori(Sessione& sessione)
{
    StampaElenco(sessione, "Elenco Fornitori", "SELECT * FROM Clienti Where Tipo = 'F' ORDER BY Cliente");
}

std::string InterrogazioneListino(const SceltaListino& scelta)
{
    std::string testo =
        "SELECT Articoli.CodiceMagazzino, Articoli.DescrizionePrincipale, Articoli.UnitaMisura, "
        "TabellaCodiciIva.AliquotaIva, ListiniPrezzi.Prezzo, DescrizioneListini.IDlistino, "
        "DescrizioneListini.Descrizione FROM TabellaCodiciIva RIGHT JOIN (DescrizioneListini RIGHT JOIN (Articoli LEFT "
        "JOIN ListiniPrezzi ON Articoli.IDArticolo = ListiniPrezzi.IDarticolo) ON DescrizioneListini.IDlistino = "
        "ListiniPrezzi.IDlistino) ON TabellaCodiciIva.IDCodiceIva = Articoli.IDCodiceIva WHERE "
        "descrizioneListini.IDListino=" +
        std::to_string(scelta.listino);
    if (!scelta.campo.empty() && !scelta.filtro.empty()) {
        testo += " AND Articoli." + scelta.campo + " LIKE " + quotedText("*" + scelta.filtro + "*");
    }
    if (scelta.ordine == 0) {
        testo += " ORDER By Articoli.CodiceMagazzino";
    } else if (scelta.ordine == 1) {
        testo += " ORDER BY Articoli.DescrizionePrincipale";
    }
    return testo;
}

void StampaListino(Sessione& sessione, const SceltaListino& scelta)
{
    Recordset articoli = sessione.cn.open(InterrogazioneListino(scelta));
    if (articoli.eof()) {
        sessione.desktop().inform("Non esistono articoli a listino corrispondenti al criterio di ricerca.",
                                  "Stampa listino");
        return;
    }
    Report report = arptListinovb();
    if (!scelta.titolo.empty()) {
        report["H"]["lblTitolo"].caption = scelta.titolo;
    }
    const std::string descrizione = articoli["Descrizione"].text();
    ImpostaLogoListino(sessione, report, descrizione);
    MostraElenco(sessione, std::move(report), std::move(articoli), nomeFile({"Listino", descrizione, scelta.titolo}));
}

void ImpostaLogoListino(const Sessione& sessione, Report& report, const std::string& descrizione)
{
    constexpr int margineLogo = 50;  // twips, as all here
    constexpr int larghezzaLogo = 4530;
    constexpr int altezzaLogo = 2267;
    constexpr int distanza = 500;
    constexpr int sottoIlLogo = 100 + 850;  // the list's name and the column headings
    ReportSection& testata = report["H"];
    ReportControl& immagine = testata["Image1"];
    immagine.visible = false;
    immagine.left = immagine.top = margineLogo;
    immagine.width = larghezzaLogo;
    immagine.height = altezzaLogo;
    testata["txtDescrizione"].caption = descrizione + "..." + testata["lblTitolo"].caption;

    for (const char* nome : {"\\logo\\lstlogo.gif", "\\logo\\logo.gif"}) {
        const std::string percorso = sessione.cartellaProgramma() + nome;
        if (!sessione.files().exists(percorso)) {
            continue;
        }
        immagine.path = Files::native(percorso);
        immagine.visible = true;
        ReportControl& cornice = testata["Shape1"];
        const int spostata = larghezzaLogo + margineLogo + distanza - cornice.left;
        const int inGiu = altezzaLogo + sottoIlLogo - testata.height;
        const int sottoLaCornice = cornice.top + cornice.height;
        // What stands in the frame goes with it, what stands below it goes down.
        for (ReportControl& controllo : testata.controls) {
            if (&controllo == &immagine) {
                continue;
            }
            if (controllo.top >= sottoLaCornice) {
                controllo.top += inGiu;
            } else {
                controllo.left += spostata;
                controllo.width -= spostata;
            }
        }
        testata["Label1"].left = immagine.left;
        testata.height = altezzaLogo + sottoIlLogo;
        return;
    }
}

}  // namespace bravona
