#include "duedates/modScadenze.h"

#include <array>

#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr int rateMassime = 6;

Recordset apriModalita(Connection& cn, std::int32_t id)
{
    return cn.open("Select * From ModalitaPagamento Where IDmodalitaPagamento=" + std::to_string(id));
}

}  // namespace

std::int16_t NumeroRate(Connection& cn, std::int32_t idModalitaPagamento)
{
    Recordset modalita = apriModalita(cn, idModalitaPagamento);
    std::int16_t rate = 0;
    if (!modalita.eof()) {
        for (int rata = 1; rata <= rateMassime; ++rata) {
            if (modalita["GG-" + std::to_string(rata)].longOr(0) != 0)
                ++rate;
        }
    }
    return rate == 0 ? std::int16_t{1} : rate;
}

Date FineMese(Date data)
{
    const Date prossimo = data.addMonths(1);
    return prossimo.addDays(-prossimo.day());
}

std::string DataScadenzaRata(Connection& cn, std::int32_t idModalitaPagamento, Date dataDocumento, int rata)
{
    Recordset modalita = apriModalita(cn, idModalitaPagamento);
    const Value giorni = modalita["GG-" + std::to_string(rata)].value();
    if (giorni.isNull())
        return {};
    const Date riferimento = modalita["DF-FM"].text() == "DF" ? dataDocumento : FineMese(dataDocumento);
    return riferimento.addDays(giorni.toLong()).text();
}

void ImpostaColonneScadenze(GrigliaScadenze& griglia)
{
    struct Colonna {
        const char* titolo;
        int larghezza;  // twips; -1: as it stands
        int allineamento;
    };
    static constexpr std::array<Colonna, 6> colonne{{{"Saldato", 450, 1},
                                                     {"Scadenza", 1300, 7},
                                                     {"Avere", 1000, 7},
                                                     {"Dare", -1, 7},
                                                     {"Saldo", 1000, 7},
                                                     {"Data Pagamento", 1300, 7}}};
    griglia.setRows(1);
    griglia.setCols(static_cast<int>(colonne.size()));
    for (int i = 0; i < griglia.Cols(); ++i) {
        const Colonna& colonna = colonne[static_cast<std::size_t>(i)];
        griglia.setTextMatrix(0, i, colonna.titolo);
        if (colonna.larghezza >= 0)
            griglia.Griglia.setColWidth(i, colonna.larghezza);
        griglia.Griglia.setColAlignment(i, colonna.allineamento);
    }
}

void GeneraScadenze(Connection& cn, GrigliaScadenze& griglia, const std::string& idModalitaPagamento,
                    Date dataDocumento, std::int16_t numeroRegistro, const std::string& totale)
{
    constexpr std::int16_t registroPrincipale = 1;
    if (griglia.Modificato)
        return;
    ImpostaColonneScadenze(griglia);
    if (idModalitaPagamento.empty())
        return;
    const std::int32_t id = toInt32(idModalitaPagamento);
    if (id == 0)
        return;

    const int rate = NumeroRate(cn, id);
    griglia.setRows(1);
    griglia.setRows(rate + 1);
    const int colonna = numeroRegistro == registroPrincipale ? 2 : 3;
    for (int rata = 1; rata <= rate; ++rata) {
        griglia.setTextMatrix(rata, 1, DataScadenzaRata(cn, id, dataDocumento, rata));
        const double importo = toCurrency(totale).toDouble() / rate;
        griglia.setTextMatrix(rata, colonna, FormattaImporto(importo));
        griglia.CalcolaSaldo(rata);
    }
    // So that "Elimina" speaks of an instalment and not of the headings.
    griglia.Griglia.setCurrent(1, 1);
}

}  // namespace bravona
