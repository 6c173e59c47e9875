#include <array>

#include "duedates/GrigliaScadenze.h"
#include "platform/values/Numeri.h"

namespace bravona {

// The instalments of a document in the grid: its six columns, filled and read.

void GrigliaScadenze::ImpostaColonne()
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
    setRows(1);
    setCols(static_cast<int>(colonne.size()));
    for (int i = 0; i < Cols(); ++i) {
        const Colonna& colonna = colonne[static_cast<std::size_t>(i)];
        setTextMatrix(0, i, colonna.titolo);
        if (colonna.larghezza >= 0)
            Griglia.setColWidth(i, colonna.larghezza);
        Griglia.setColAlignment(i, colonna.allineamento);
    }
}

void GrigliaScadenze::mostra(std::span<const Rata> rate)
{
    ImpostaColonne();
    if (rate.empty())
        return;
    setRows(static_cast<int>(rate.size()) + 1);
    for (int riga = 1; riga < Rows(); ++riga) {
        const Rata& rata = rate[static_cast<std::size_t>(riga - 1)];
        setTextMatrix(riga, colonne::pagata, rata.Saldata);
        const auto data = [](const std::optional<Date>& d) { return d ? d->text() : std::string(); };
        const auto importo = [](const std::optional<Currency>& i) { return i ? FormattaImporto(*i) : std::string(); };
        setTextMatrix(riga, colonne::scadenza, data(rata.Scadenza));
        setTextMatrix(riga, colonne::avere, importo(rata.Avere));
        setTextMatrix(riga, colonne::dare, importo(rata.Dare));
        setTextMatrix(riga, colonne::dataPagamento, data(rata.DataPagamento));
        CalcolaSaldo(riga);
    }
    // So that "Elimina" speaks of an instalment and not of the headings.
    Griglia.setCurrent(1, colonne::scadenza);
}

std::vector<Rata> GrigliaScadenze::rate() const
{
    const auto data = [this](int riga, int colonna) -> std::optional<Date> {
        const std::string& testo = Griglia.text(riga, colonna);
        return testo.empty() ? std::nullopt : std::optional(toDate(testo));
    };
    const auto importo = [this](int riga, int colonna) -> std::optional<Currency> {
        const std::string& testo = Griglia.text(riga, colonna);
        return testo.empty() ? std::nullopt : std::optional(toCurrency(testo));
    };
    std::vector<Rata> rate;
    for (int riga = 1; riga < Rows(); ++riga) {
        rate.push_back({TextMatrix(riga, colonne::pagata).toBool(), data(riga, colonne::scadenza),
                        importo(riga, colonne::avere), importo(riga, colonne::dare),
                        data(riga, colonne::dataPagamento)});
    }
    return rate;
}

}  // namespace bravona
