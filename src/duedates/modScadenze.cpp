#include "duedates/modScadenze.h"

#include "platform/values/Errore.h"

namespace bravona {

GiorniPagamento leggiGiorniPagamento(Connection& cn, std::int32_t idModalitaPagamento)
{
    Recordset modalita =
        cn.open("Select * From ModalitaPagamento Where IDmodalitaPagamento=" + std::to_string(idModalitaPagamento));
    GiorniPagamento letti;
    if (modalita.eof())
        return letti;
    letti.esiste = true;
    letti.dallaData = modalita["DF-FM"].text() == "DF";
    for (int rata = 1; rata <= GiorniPagamento::rateMassime; ++rata) {
        const Value giorni = modalita["GG-" + std::to_string(rata)].value();
        if (!giorni.isNull())
            letti.giorni[static_cast<std::size_t>(rata - 1)] = giorni.toLong();
    }
    return letti;
}

// Gaps are not looked for: 30, nothing, 90 counts two, and then the first two are asked for.
std::int16_t GiorniPagamento::numeroRate() const
{
    std::int16_t rate = 0;
    for (const std::optional<std::int32_t>& giorno : giorni) {
        if (giorno.value_or(0) != 0)
            ++rate;
    }
    return rate == 0 ? std::int16_t{1} : rate;
}

std::optional<Date> GiorniPagamento::scadenza(Date dataDocumento, int rata) const
{
    if (!esiste)
        throw Errore(errori::nessunRecordCorrente, "Nessun record corrente.");
    const std::optional<std::int32_t> giorno = giorni.at(static_cast<std::size_t>(rata - 1));
    if (!giorno)
        return std::nullopt;
    return (dallaData ? dataDocumento : FineMese(dataDocumento)).addDays(*giorno);
}

std::int16_t NumeroRate(Connection& cn, std::int32_t idModalitaPagamento)
{
    return leggiGiorniPagamento(cn, idModalitaPagamento).numeroRate();
}

std::string DataScadenzaRata(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento, int rata)
{
    const auto data = leggiGiorniPagamento(cn, idModalitaPagamento).scadenza(dataDocumento, rata);
    return data ? data->text() : std::string();
}

Date FineMese(Date data)
{
    const Date prossimo = data.addMonths(1);
    return prossimo.addDays(-prossimo.day());
}

}  // namespace bravona
