#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "Magazzino.h"
#include "Tempi.h"
#include "platform/store/ConnectionImpl.h"
#include "support/ProgrammaDiProva.h"
#include "warehouse/Movimento.h"

// Goods received: a long receipt against its bare statements, and what finding an article by its code costs.
namespace bravona {

namespace {

constexpr int righe = 500;
constexpr int tuttiComuni = 1'000'000;  // no article with a rare code

Movimento carico()
{
    Movimento movimento;
    movimento.NumeroDocumento = 815;
    movimento.AnnoDocumento = 2004;
    movimento.DataDocumento = movimento.DataOperazione = Date::fromYmd(2004, 1, 10).value();
    movimento.IDFornitore = 9;
    for (int i = 0; i < righe; ++i) {
        RigaDocumento& riga = movimento.righe.emplace_back();
        riga.IDArticolo = primoArticolo + 1 + i;
        riga.CodiceArticolo = "ART-" + std::to_string(1 + i);
        riga.Descrizione = "Vite zincata";
        riga.Quantita = 5;
        riga.PrezzoUnitario = Currency::fromEuro(16);
        riga.TotaleRiga = Currency::fromEuro(80);
        riga.Aggiornato = aggiornato::no;
    }
    return movimento;
}

// What a receipt sends, prepared once and straight to the engine: the header, and for each row its insertion, the
// reading of its article and the article's update.
class CaricoNudo {
public:
    explicit CaricoNudo(Connection& cn) : cn_(cn) {}

    void scrivi(const Movimento& movimento)
    {
        cn_.begin();
        testata_.bindWhole(1, movimento.NumeroDocumento);
        testata_.bindWhole(2, movimento.AnnoDocumento);
        testata_.bindWhole(3, movimento.DataDocumento.dayNumber());
        testata_.bindWhole(4, movimento.DataOperazione.dayNumber());
        testata_.bindWhole(5, movimento.IDFornitore);
        testata_.bindWhole(6, righe);
        testata_.step();
        testata_.reset();
        const std::int64_t id = sqlite3_last_insert_rowid(db());
        for (const RigaDocumento& riga : movimento.righe) {
            inserisci(id, riga);
            carica(riga, movimento.DataOperazione);
        }
        cn_.commit();
    }

private:
    sqlite3* db() { return cn_.impl().engine.get(); }

    void inserisci(std::int64_t id, const RigaDocumento& riga)
    {
        riga_.bindWhole(1, id);
        riga_.bindWhole(2, riga.IDArticolo);
        riga_.bindText(3, riga.CodiceArticolo);
        riga_.bindText(4, riga.Descrizione);
        riga_.bindReal(5, riga.Quantita);
        riga_.bindWhole(6, riga.PrezzoUnitario.tenThousandths());
        for (int posto = 7; posto <= 9; ++posto)
            riga_.bindWhole(posto, 0);
        riga_.bindWhole(10, riga.TotaleRiga.tenThousandths());
        riga_.bindText(11, aggiornato::si);
        riga_.step();
        riga_.reset();
    }

    void carica(const RigaDocumento& riga, Date data)
    {
        articolo_.bindText(1, riga.CodiceArticolo);
        articolo_.step();
        const std::int64_t id = sqlite3_column_int64(articolo_.get(), 0);
        const double carico = sqlite3_column_double(articolo_.get(), 5) + riga.Quantita;
        const double giacenza = sqlite3_column_double(articolo_.get(), 6) + riga.Quantita;
        const std::int64_t valore = sqlite3_column_int64(articolo_.get(), 7) + riga.TotaleRiga.tenThousandths();
        articolo_.reset();
        aggiorna_.bindWhole(1, data.dayNumber());
        aggiorna_.bindWhole(2, riga.PrezzoUnitario.tenThousandths());
        aggiorna_.bindReal(3, carico);
        aggiorna_.bindReal(4, giacenza);
        aggiorna_.bindWhole(5, valore);
        aggiorna_.bindWhole(6, std::llround(static_cast<double>(valore) / carico));
        aggiorna_.bindWhole(7, id);
        aggiorna_.step();
        aggiorna_.reset();
    }

    Connection& cn_;
    EngineStatement testata_{db(), "INSERT INTO MovimentiMagazzino (NumeroDocumento, AnnoDocumento, DataDocumento, "
                                   "DataOperazione, IDFornitore, NumeroDettagli) VALUES (?,?,?,?,?,?)"};
    EngineStatement riga_{db(), "INSERT INTO MovimentiMagazzino_Dettagli (IDMovimenti, IDArticolo, CodiceArticolo, "
                                "Descrizione, Quantita, PrezzoUnitario, Sconto1, Sconto2, Sconto3, TotaleRiga, "
                                "Aggiornato) VALUES (?,?,?,?,?,?,?,?,?,?,?)"};
    EngineStatement articolo_{db(), "SELECT IDArticolo,CodiceMagazzino,DataUltimoCarico,CostoUltimo,CostoMedio,Carico,"
                                    "Giacenza,CaricoValore FROM Articoli WHERE CodiceMagazzino = ?"};
    EngineStatement aggiorna_{db(), "UPDATE Articoli SET DataUltimoCarico=?, CostoUltimo=?, Carico=?, Giacenza=?, "
                                    "CaricoValore=?, CostoMedio=? WHERE IDArticolo=?"};
};

// A receipt of 500 rows, each of another article: at most one and a half times its bare statements.
void caricoDi500Righe(benchmark::State& stato)
{
    constexpr int giri = 30;
    double programma = 1e9;
    double motore = 1e9;
    for (auto _ : stato) {
        ProgrammaDiProva p;
        Connection& cn = p.sessione().cn;
        aggiungiArticoli(p.sessione(), 2 * righe, tuttiComuni);
        const Movimento movimento = carico();
        CaricoNudo nudo(cn);
        for (int giro = 0; giro < giri; ++giro) {
            programma = std::min(programma, secondi([&] {
                                     Transaction transazione(cn);
                                     scriviMovimento(cn, movimento);
                                     transazione.commit();
                                 }));
            motore = std::min(motore, secondi([&] { nudo.scrivi(movimento); }));
        }
        const std::string attesi = std::to_string(2 * giri * 5);
        if (p.valore("SELECT COUNT(*) FROM Articoli WHERE Carico=" + attesi + " AND CostoMedio=16") !=
            std::to_string(righe)) {
            stato.SkipWithError("not every article was loaded by both");
        }
    }
    stato.counters["program_ms"] = programma * 1e3;
    stato.counters["engine_ms"] = motore * 1e3;
    stato.counters["program/engine"] = programma / motore;
}
BENCHMARK(caricoDi500Righe)->Iterations(1)->Unit(benchmark::kMillisecond);

void cercaPerCodice(Connection& cn)
{
    constexpr int ricerche = 1'000;
    constexpr int codici = 99;  // those that both archives have
    for (int i = 0; i < ricerche; ++i) {
        Recordset articolo = cn.open("SELECT IDArticolo,CodiceMagazzino,DataUltimoCarico,CostoUltimo,CostoMedio,Carico,"
                                     "Giacenza,CaricoValore FROM Articoli WHERE CodiceMagazzino = \"ART-" +
                                         std::to_string(1 + i % codici) + "\"",
                                     OpenMode::updatable);
        benchmark::DoNotOptimize(articolo["IDArticolo"].asLong());
    }
}

// An article found by its code among 100,000 costs what it costs among 100; the two take turns.
void articoloPerCodice(benchmark::State& stato)
{
    constexpr int giri = 30;
    constexpr int pochi = 100;
    constexpr int molti = 100'000;
    double fraPochi = 1e9;
    double fraMolti = 1e9;
    for (auto _ : stato) {
        ProgrammaDiProva piccolo;
        ProgrammaDiProva grande;
        aggiungiArticoli(piccolo.sessione(), pochi, tuttiComuni);
        aggiungiArticoli(grande.sessione(), molti, tuttiComuni);
        for (int giro = 0; giro < giri; ++giro) {
            fraPochi = std::min(fraPochi, secondi([&] { cercaPerCodice(piccolo.sessione().cn); }));
            fraMolti = std::min(fraMolti, secondi([&] { cercaPerCodice(grande.sessione().cn); }));
        }
    }
    stato.counters["few_ms"] = fraPochi * 1e3;
    stato.counters["many_ms"] = fraMolti * 1e3;
    stato.counters["many/few"] = fraMolti / fraPochi;
}
BENCHMARK(articoloPerCodice)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace bravona
