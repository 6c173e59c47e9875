#include "documents/clsCalcoli.h"

#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr double tagMinimoValido = -1;  // a row typed without a search; comment rows carry -5

bool rigaValida(const FonteRighe& righe, std::size_t riga)
{
    return leadingNumber(righe.tagRiga(riga)) >= tagMinimoValido;
}

Currency importoRiga(const FonteRighe& righe, std::size_t riga)
{
    return toCurrency(righe.totaleRiga(riga));
}

}  // namespace

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

void clsCalcoli::Calcola()
{
    gruppi_ = {};
    righeValide_ = 0;
    voci_ = imponibile_ = imposta_ = documento_ = Currency{};
    if (righe_ == nullptr)
        return;

    Currency voci;
    for (std::size_t riga = 0; riga < righe_->numeroRighe(); ++riga) {
        if (!rigaValida(*righe_, riga))
            continue;
        ++righeValide_;
        const Currency importo = importoRiga(*righe_, riga);
        voci += importo;
        const std::string& codice = righe_->codiceIvaRiga(riga);
        GruppoIVA& gruppo = gruppoDi(codice);
        gruppo.Codice = codice;
        gruppo.Aliquota = tabellaIva_.GetValoreAliquotaIvaFromCodice(codice);
        gruppo.Imponibile += importo;
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

TotaleRiga CalcolaTotaleRiga(const std::string& quantita, const std::string& prezzo,
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

    const double pezzi = toDouble(testoQuantita);
    double netto = 0;
    try {
        netto = toCurrency(FormattaImporto(prezzo)).toDouble();
    } catch (const Errore&) {
        netto = 0;  // a price that cannot be read counts as nothing
    }
    for (const double sconto : sconti)
        netto -= netto * (sconto / 100);
    return {FormattaImporto(netto), FormattaImporto(pezzi * netto)};
}

}  // namespace bravona
