#include "duedates/Rate.h"

#include "duedates/modScadenze.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr std::int32_t registroPrincipale = 1;

// Amounts stand in the archive as amount text.
std::string testoImporto(const std::optional<Currency>& importo)
{
    return importo ? FormattaImporto(*importo) : std::string();
}

std::optional<Currency> importoDi(Field campo)
{
    const std::string testo = campo.text();
    return testo.empty() ? std::nullopt : parseAmount(testo);
}

std::optional<Date> dataDi(const Value& valore)
{
    return valore.isNull() ? std::nullopt : std::optional(valore.toDate());
}

Value valoreDi(const std::optional<Date>& data)
{
    return data ? Value(*data) : Value();
}

}  // namespace

bool rataSaldata(const std::string& testo)
{
    return leadingNumber(testo) != 0 || testo == "True" || testo == "Vero";
}

std::vector<Rata> calcolaPiano(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento,
                               std::int32_t registro, Currency totale)
{
    std::vector<Rata> piano;
    if (idModalitaPagamento == 0)
        return piano;
    const GiorniPagamento giorni = leggiGiorniPagamento(cn, idModalitaPagamento);
    const int rate = giorni.numeroRate();
    const Currency importo = aCentesimi(totale.toDouble() / rate);
    for (int rata = 1; rata <= rate; ++rata) {
        Rata& nuova = piano.emplace_back();
        nuova.Scadenza = giorni.scadenza(dataDocumento, rata);
        (registro == registroPrincipale ? nuova.Avere : nuova.Dare) = importo;
    }
    return piano;
}

std::vector<Rata> leggiRate(Connection& cn, std::int32_t idDocumento)
{
    Recordset scadenzario =
        cn.open("Select * From Scadenzario Where IDDocumento=" + std::to_string(idDocumento) + " Order By Scadenza");
    std::vector<Rata> rate;
    for (; !scadenzario.eof(); scadenzario.moveNext()) {
        rate.push_back({rataSaldata(scadenzario["Saldato"].text()), dataDi(scadenzario["Scadenza"].value()),
                        importoDi(scadenzario["avere"]), importoDi(scadenzario["dare"]),
                        dataDi(scadenzario["Data_Pagamento"].value())});
    }
    return rate;
}

void scriviRate(Connection& cn, std::int32_t idDocumento, std::int32_t registro, std::span<const Rata> rate)
{
    Recordset scadenzario = cn.openTable("Scadenzario");
    for (const Rata& rata : rate) {
        scadenzario.addNew();
        scadenzario["IDDocumento"] = idDocumento;
        scadenzario["IDRegistro"] = registro;
        scadenzario["Saldato"] = rata.Saldata ? "-1" : "0";
        scadenzario["Scadenza"] = valoreDi(rata.Scadenza);
        scadenzario["avere"] = rata.Avere ? Value(testoImporto(rata.Avere)) : Value();
        scadenzario["dare"] = rata.Dare ? Value(testoImporto(rata.Dare)) : Value();
        scadenzario["Data_Pagamento"] = valoreDi(rata.DataPagamento);
        scadenzario.update();
    }
}

void riscriviRate(Connection& cn, std::int32_t idDocumento, std::int32_t registro, std::span<const Rata> rate)
{
    cn.execute("Delete From Scadenzario Where IDDocumento=" + std::to_string(idDocumento));
    scriviRate(cn, idDocumento, registro, rate);
}

}  // namespace bravona
