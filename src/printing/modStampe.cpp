#include "printing/modStampe.h"

#include <array>
#include <utility>

#include "platform/preview/frmAnteprima.h"
#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "printing/DisegnoDocumento.h"
#include "printing/RecordsetStampa.h"
#include "printing/arptDDTvb.h"
#include "printing/arptFatturaDifferitavb.h"
#include "printing/arptFatturaImmediatavb.h"
#include "printing/arptFatturaProformavb.h"

namespace bravona {

namespace {

std::string Condizione(const Sessione& sessione, std::int32_t numero, std::int16_t registro)
{
    return "NumeroDocumento=" + std::to_string(numero) + " AND AnnoDocumento=" + sessione.AnnoRiferimento +
           " AND NumeroRegistro=" + std::to_string(registro);
}

// Header, customer, rows and destination of a document; `stato` tells whether the customer's country is among them.
std::string Colonne(const std::string& testata, const std::string& dettagli, bool stato)
{
    return "SELECT " + testata + ".*, Format(DataDocumento,'dd/mm/yyyy') AS DataF, Clienti.Cliente, " +
           "Clienti.ClienteSecondaRiga, Clienti.Indirizzo, Clienti.Citta, " + (stato ? "Clienti.Stato, " : "") +
           "Clienti.Cap, Clienti.Banca, Clienti.Provincia, Clienti.PartitaIva, Clienti.CodiceFiscale, " + dettagli +
           ".CodiceArticolo, " + dettagli + ".Descrizione, " + dettagli + ".UnitaMisura, " + dettagli +
           ".AliquotaIva, " + dettagli + ".Quantita, " + dettagli + ".PrezzoUnitario, " + dettagli + ".Sconto1, " +
           dettagli + ".Sconto2, " + dettagli + ".Sconto3, " + dettagli + ".TotaleRiga, " + dettagli + ".CodiceIva, " +
           "DestinazioneMerceClienti.Destinazione, DestinazioneMerceClienti.Indirizzo, "
           "DestinazioneMerceClienti.Citta, " +
           "DestinazioneMerceClienti.Provincia, DestinazioneMerceClienti.CAP ";
}

// Rows that only the invoice is to show ("***F") stay off the transport document.
std::string InterrogazioneDDT(const Sessione& sessione, std::int32_t numero, std::int16_t registro)
{
    return Colonne("Bolle", "Bolle_Dettagli", true) +
           "FROM (DestinazioneMerceClienti RIGHT JOIN (Clienti INNER JOIN Bolle ON Clienti.IDcliente = "
           "Bolle.IDcliente) "
           "ON DestinazioneMerceClienti.IDdestinazione = Bolle.IDDestinazione) "
           "LEFT JOIN Bolle_Dettagli ON Bolle.IDbolla = Bolle_Dettagli.IDbolla WHERE " +
           Condizione(sessione, numero, registro) +
           " AND Bolle_Dettagli.CodiceArticolo <> '***F' ORDER BY Bolle_Dettagli.IDriga;";
}

std::string InterrogazioneFattura(const Sessione& sessione, const std::string& tabella, std::int32_t numero,
                                  std::int16_t registro, bool stato)
{
    const std::string dettagli = tabella + "_Dettagli";
    return Colonne(tabella, dettagli, stato) + "FROM ((" + tabella + " LEFT JOIN " + dettagli + " ON " + tabella +
           ".IDfattura = " + dettagli + ".IDfattura) LEFT JOIN Clienti ON " + tabella +
           ".IDcliente = Clienti.IDcliente) LEFT JOIN DestinazioneMerceClienti ON " + tabella +
           ".IDDestinazione = DestinazioneMerceClienti.IDdestinazione WHERE " + Condizione(sessione, numero, registro) +
           " ORDER BY " + dettagli + ".IDriga;";
}

std::string Citta(const std::string& cap, const std::string& citta, const std::string& provincia)
{
    return cap + " " + citta + (provincia.empty() ? std::string() : " (" + provincia + ")");
}

RigheIndirizzo Indirizzo(Recordset& documento)
{
    RigheIndirizzo righe;
    righe.lblCittaProvincia = Citta(documento["Clienti.Cap"].text(), documento["Clienti.Citta"].text(),
                                    documento["Clienti.Provincia"].text());
    if (documento.hasColumn("Stato") && !documento["Stato"].text().empty()) {
        righe.lblCittaProvincia += " - " + documento["Stato"].text();
    }
    if (documento["Destinazione"].isNull()) {
        righe.lblDestinazioneMerceCitta = "I D E M";
    } else {
        righe.lblDestinazioneMerceIndirizzo = documento["DestinazioneMerceClienti.Indirizzo"].text();
        righe.lblDestinazioneMerceCitta =
            Citta(documento["DestinazioneMerceClienti.CAP"].text(), documento["DestinazioneMerceClienti.Citta"].text(),
                  documento["DestinazioneMerceClienti.Provincia"].text());
    }
    return righe;
}

StampaDocumento Prepara(Sessione& sessione, Report report, const std::string& interrogazione, std::int32_t numero,
                        std::int16_t registro, int righe, const std::string& tipo)
{
    Recordset documento = sessione.cn.open(interrogazione);
    const RigheIndirizzo indirizzo = Indirizzo(documento);
    StampaDocumento stampa;
    stampa.report = std::move(report);
    ImpostaDestinatario(stampa.report["H"], !documento["ClienteSecondaRiga"].text().empty());
    ImpostaCap(stampa.report["H"], sessione.DatiDitta);
    stampa.nomeFile = nomeFile({tipo, std::to_string(numero), sessione.AnnoRiferimento, documento["Cliente"].text()});
    stampa.dati = CostruisciRecordsetStampa(documento, sessione.DatiDitta, std::to_string(numero),
                                            std::to_string(registro), indirizzo, static_cast<std::int16_t>(righe));
    return stampa;
}

void ImpostaRegistro(const Sessione& sessione, Report& report, std::int16_t registro)
{
    if (registro < 1 || static_cast<std::size_t>(registro) >= sessione.ElencoRegistri.size()) {
        throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
    }
    report["H"]["Registro"].caption = sessione.ElencoRegistri[static_cast<std::size_t>(registro)];
}

void Mostra(Sessione& sessione, StampaDocumento stampa, bool modale)
{
    Pages pagine = componi(stampa.report, stampa.dati, sessione.clock().today());
    stampa.dati.close();
    mostraAnteprima(sessione.desktop(), stampa.report.windowTitle, std::move(pagine), stampa.nomeFile, modale);
    sessione.desktop().processEvents();
}

}  // namespace

void ImpostaLogoDocumento(const Sessione& sessione, Report& report)
{
    constexpr std::array bloccoDitta{"Text13", "Text14", "Text15",  "Text16",  "Text19",
                                     "Text11", "Text20", "Label10", "Label45", "Label46"};
    ReportSection& testata = report["H"];
    const std::string percorso = sessione.cartellaProgramma() + "\\logo\\logo.gif";
    const bool logo = sessione.files().exists(percorso);
    testata["image1"].visible = logo;
    testata["image1"].path = logo ? Files::native(percorso) : std::string();
    for (const char* nome : bloccoDitta) {
        testata[nome].visible = !logo;
    }
    if (logo) {
        testata["lblCap"].visible = false;
        ImpostaDatiLegali(testata, sessione.DatiDitta);
    }
}

StampaDocumento PreparaDDT(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    return Prepara(sessione, arptDDTvb(), InterrogazioneDDT(sessione, NumeroDocumento, NumeroRegistro), NumeroDocumento,
                   NumeroRegistro, righeDDT, "DDT");
}

StampaDocumento PreparaFatturaImmediata(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    // The customer's country is left out here.
    StampaDocumento stampa = Prepara(sessione, arptFatturaImmediatavb(),
                                     InterrogazioneFattura(sessione, "Fatture", NumeroDocumento, NumeroRegistro, false),
                                     NumeroDocumento, NumeroRegistro, righeFatturaImmediata, "Fattura");
    ImpostaLogoDocumento(sessione, stampa.report);
    ImpostaRegistro(sessione, stampa.report, NumeroRegistro);
    return stampa;
}

StampaDocumento PreparaFatturaProforma(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    StampaDocumento stampa = Prepara(sessione, arptFatturaProformavb(),
                                     InterrogazioneFattura(sessione, "Proforma", NumeroDocumento, NumeroRegistro, true),
                                     NumeroDocumento, NumeroRegistro, righeFatturaProforma, "Preventivo");
    ImpostaLogoDocumento(sessione, stampa.report);
    return stampa;
}

StampaDocumento PreparaFatturaDifferita(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro,
                                        const std::string& titolo)
{
    StampaDocumento stampa = Prepara(sessione, arptFatturaDifferitavb(),
                                     InterrogazioneFattura(sessione, "Fatture", NumeroDocumento, NumeroRegistro, true),
                                     NumeroDocumento, NumeroRegistro, righeFatturaDifferita,
                                     titolo.empty() ? "Fattura" : left(titolo, 1) + lower(mid(titolo, 1)));
    ImpostaLogoDocumento(sessione, stampa.report);
    if (!titolo.empty()) {
        stampa.report["H"]["lblTitolo"].caption = titolo;
    }
    ImpostaRegistro(sessione, stampa.report, NumeroRegistro);
    return stampa;
}

void StampaDDT(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    Mostra(sessione, PreparaDDT(sessione, NumeroDocumento, NumeroRegistro), false);
}

void StampaFatturaImmediata(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    Mostra(sessione, PreparaFatturaImmediata(sessione, NumeroDocumento, NumeroRegistro), true);
}

void StampaFatturaProforma(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro)
{
    Mostra(sessione, PreparaFatturaProforma(sessione, NumeroDocumento, NumeroRegistro), false);
}

void StampaFatturaDifferita(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro,
                            const std::string& titolo)
{
    Mostra(sessione, PreparaFatturaDifferita(sessione, NumeroDocumento, NumeroRegistro, titolo), false);
}

}  // namespace bravona
