#include "documents/clsCalcoli.h"

#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

const GruppoIVA& clsCalcoli::gruppo_(int gruppo) const
{
    if (gruppo < 1 || gruppo > numeroGruppi)
        throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
    return gruppi_[static_cast<std::size_t>(gruppo - 1)];
}

GruppoIVA& clsCalcoli::gruppoDi(const std::string& codice)
{
    for (GruppoIVA& gruppo : gruppi_) {
        if (gruppo.Codice == codice)
            return gruppo;
        if (gruppo.Codice.empty()) {
            gruppo.Descrizione = tabellaIva_.GetDescrizioneAliquotaIvaFromCodice(codice);
            return gruppo;
        }
    }
    throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
}

void clsCalcoli::Calcola(std::span<const RigaDocumento> righe)
{
    gruppi_ = {};
    righeValide_ = 0;
    voci_ = imponibile_ = imposta_ = documento_ = Currency{};

    Currency voci;
    for (const RigaDocumento& riga : righe) {
        if (!riga.conImporto())
            continue;
        ++righeValide_;
        voci += riga.TotaleRiga;
        const std::string codice = raggruppamento_ == Gruppi::unico ? std::string() : riga.CodiceIva;
        GruppoIVA& gruppo = gruppoDi(codice);
        gruppo.Codice = codice;
        gruppo.Aliquota = tabellaIva_.GetValoreAliquotaIvaFromCodice(riga.CodiceIva);
        gruppo.Imponibile += riga.TotaleRiga;
        // On the group's sum, never row by row.
        gruppo.ImportoIva = Currency::fromDouble(gruppo.Imponibile.toDouble() * (gruppo.Aliquota / 100.0));
        gruppo.Totale = gruppo.Imponibile + gruppo.ImportoIva;
    }
    voci_ = voci;
    for (const GruppoIVA& gruppo : gruppi_) {
        imponibile_ += gruppo.Imponibile;
        imposta_ += gruppo.ImportoIva;
    }
    documento_ = voci_ + imposta_;
}

void clsCalcoli::riporta(TestataDocumento& testata) const
{
    testata.Gruppi = gruppi_;
    testata.TotaleIvaEsclusa = aCentesimi(voci_);
    testata.ImportoTotaleIva = aCentesimi(imposta_);
    testata.TotaleDocumento = aCentesimi(documento_);
    testata.NumeroDettagli = righeValide_;
}

std::string clsCalcoli::riepilogoIva() const
{
    std::string testo;
    for (const GruppoIVA& gruppo : gruppi_) {
        if (gruppo.Codice.empty())
            continue;
        testo += AllineaSinistra(gruppo.Codice, 3) + " " + AllineaSinistra(std::to_string(gruppo.Aliquota) + "%", 4) +
                 " " + AllineaSinistra(gruppo.Descrizione, 15) + " " +
                 AllineaDestra(FormattaImporto(gruppo.Imponibile), 14) + " " +
                 AllineaDestra(FormattaImporto(gruppo.ImportoIva), 14) + "\r\n";
    }
    return testo;
}

TotaleRiga CalcolaTotaleRiga(double quantita, Currency prezzo, const std::array<double, 3>& sconti)
{
    double netto = prezzo.toDouble();
    for (const double sconto : sconti)
        netto -= netto * (sconto / 100);
    return {netto, quantita * netto};
}

TestiTotaleRiga CalcolaTotaleRiga(const std::string& quantita, const std::string& prezzo,
                                  const std::array<double, 3>& sconti)
{
    const std::string testoQuantita = trim(quantita);
    const std::string testoPrezzo = trim(prezzo);
    // Nothing, the beginning of a number that has no digit yet, or a quantity that is none.
    const auto nullo = [](const std::string& testo) {
        return testo == "0" || testo.find_first_not_of("-.,") == std::string::npos;
    };
    if (nullo(testoQuantita) || nullo(testoPrezzo) || !isNumeric(testoQuantita))
        return {"0", "0"};

    Currency unitario;
    try {
        unitario = aCentesimi(testoPrezzo);
    } catch (const Errore&) {
        unitario = {};  // a price that cannot be read counts as nothing
    }
    const TotaleRiga totale = CalcolaTotaleRiga(toDouble(testoQuantita), unitario, sconti);
    return {FormattaImporto(totale.prezzoScontato), FormattaImporto(totale.totale)};
}

}  // namespace bravona
