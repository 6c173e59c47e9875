#include <benchmark/benchmark.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

#include "Tempi.h"
#include "duedates/frmScadenze.h"
#include "platform/store/ConnectionImpl.h"
#include "support/ProgrammaDiProva.h"

// The due-date ledger over ten years of invoices.
namespace bravona {

namespace {

constexpr int fatture = 100'000;
constexpr int rate = 250'000;

void riempi(Connection& cn)
{
    Transaction tutto(cn);
    EngineStatement fattura(
        cn.impl().engine.get(),
        "INSERT INTO Fatture (IDFattura, NumeroDocumento, NumeroRegistro, TipoDocumento, AnnoDocumento, DataDocumento, "
        "IDCliente, IDmodalitaPagamento, ModalitaPagamento, TotaleDocumento) VALUES (?, ?, 1, 2, ?, ?, 7, 5, 'Ric. "
        "Banc. 30/60 gg. F.M.', 1000000)");
    const std::int32_t inizio = Date::fromYmd(1995, 1, 1).value().dayNumber();
    for (int i = 0; i < fatture; ++i) {
        const Date giorno = Date::fromDayNumber(inizio + i * 3650 / fatture);
        fattura.bindWhole(1, i + 1);
        fattura.bindWhole(2, i + 1);
        fattura.bindWhole(3, giorno.year());
        fattura.bindWhole(4, giorno.dayNumber());
        fattura.step();
        fattura.reset();
    }
    EngineStatement rata(cn.impl().engine.get(),
                         "INSERT INTO Scadenzario (IDDocumento, IDRegistro, Scadenza, Saldato, avere) VALUES (?, 1, ?, "
                         "'0', '€ 1.234,50')");
    for (int i = 0; i < rate; ++i) {
        const std::int64_t documento = std::int64_t{i} * fatture / rate;
        rata.bindWhole(1, documento + 1);
        rata.bindWhole(2, inizio + documento * 3650 / fatture + 30);
        rata.step();
        rata.reset();
    }
    tutto.commit();
}

std::vector<std::string> rigaNuda(const EngineStatement& s)
{
    std::vector<std::string> testi;
    for (int i = 0; i < sqlite3_column_count(s.get()); ++i) {
        const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(s.get(), i));
        testi.emplace_back(testo == nullptr ? "" : testo);
    }
    return testi;
}

// Both statements straight to the engine, and the instalments put under their invoices.
std::size_t nuda(Connection& cn)
{
    sqlite3* db = cn.impl().engine.get();
    std::unordered_map<std::string, std::vector<std::vector<std::string>>> perDocumento;
    EngineStatement figli(db,
                          "SELECT s.IDDocumento, s.* FROM Scadenzario s WHERE s.IDDocumento IN (SELECT IDFattura FROM "
                          "Fatture WHERE AnnoDocumento = 2004)");
    while (figli.step()) {
        std::vector<std::string> riga = rigaNuda(figli);
        perDocumento[riga.front()].push_back(std::move(riga));
    }
    EngineStatement documenti(
        db,
        "SELECT f.IDFattura, f.RiferimentoBolla, f.NumeroRegistro, f.TipoDocumento, f.NumeroDocumento, "
        "f.TotaleIvaEsclusa, f.ImportoTotaleIva, f.ModalitaPagamento, f.IDCliente, f.IDmodalitaPagamento, "
        "f.AnnoDocumento, f.DataDocumento, f.TotaleDocumento, c.Cliente, c.ClienteSecondaRiga FROM Fatture f JOIN "
        "Clienti c ON f.IDCliente = c.IDCliente WHERE f.AnnoDocumento = 2004 AND f.TipoDocumento IN (1,2,4,5) ORDER BY "
        "f.NumeroDocumento");
    std::size_t righe = 0;
    while (documenti.step()) {
        const std::vector<std::string> testata = rigaNuda(documenti);
        const auto sue = perDocumento.find(testata.front());
        righe += sue == perDocumento.end() ? 0 : sue->second.size();
    }
    return righe;
}

void scadenzario(benchmark::State& stato)
{
    constexpr int giri = 10;
    ProgrammaDiProva prova;
    Sessione& sessione = prova.sessione();
    riempi(sessione.cn);
    prova.orologio.set(Date::fromYmd(2005, 6, 1).value());
    double apre = 1e9;
    double nudo = 1e9;
    double segna = 1e9;
    std::size_t righe = 0;
    int scritture = 0;
    for (auto _ : stato) {
        for (int giro = 0; giro < giri; ++giro) {
            std::size_t nude = 0;
            nudo = std::min(nudo, secondi([&] { nude = nuda(sessione.cn); }));
            auto& scadenze = sessione.schermate().as<frmScadenze>("frmScadenze");
            apre = std::min(apre, secondi([&] { sessione.desktop().load(scadenze); }));
            righe = static_cast<std::size_t>(scadenze.GrigliaScadenze1.Rows()) - 1;
            if (righe != nude) {
                throw std::runtime_error("instalments are missing");
            }
            FlexGrid& griglia = scadenze.GrigliaScadenze1.Griglia;
            scritture = 0;
            sessione.cn.setWriteHook([&](const std::string&) { ++scritture; });
            segna = std::min(segna, secondi([&] { griglia.userClick(griglia.rows() - 1, 0); }));
            griglia.userClick(griglia.rows() - 1, 0);
            sessione.cn.setWriteHook({});
            scadenze.unload();
        }
    }
    stato.counters["instalments"] = static_cast<double>(righe);
    stato.counters["open_ms"] = apre * 1e3;
    stato.counters["open/bare"] = apre / nudo;
    stato.counters["mark_us"] = segna * 1e6;
    stato.counters["writes a mark"] = scritture / 2.0;
}

BENCHMARK(scadenzario)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

}  // namespace bravona
