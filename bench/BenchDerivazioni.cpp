#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "Tempi.h"
#include "platform/store/ConnectionImpl.h"
#include "platform/values/Errore.h"
#include "support/ProgrammaDiProva.h"

// An invoice made of many transport documents, against the bare engine.
namespace bravona {

namespace {

constexpr int bolle = 200;
constexpr int righePerBolla = 20;

void riempi(Connection& cn)
{
    Transaction transazione(cn);
    Recordset testate = cn.openTable("Bolle");
    Recordset righe = cn.openTable("Bolle_Dettagli");
    for (int numero = 1; numero <= bolle; ++numero) {
        testate.addNew();
        testate["NumeroDocumento"] = numero;
        testate["AnnoDocumento"] = 2004;
        testate["NumeroRegistro"] = 1;
        testate["DataDocumento"] = Date::fromYmd(2004, 1, 10).value();
        testate["IDCliente"] = 7;
        testate["Tipo"] = "V";
        testate["CausaleTrasporto"] = "VENDITA";
        testate["EmessaFattura"] = "N";
        testate["IDmodalitaPagamento"] = 5;
        testate["CodiceIva1"] = "A";
        testate["ImponibileIva1"] = 2'000;
        testate["ImportoIva1"] = 400;
        testate["TotaleDocumento"] = 2'400;
        testate.update();
        for (int i = 0; i < righePerBolla; ++i) {
            righe.addNew();
            righe["IDBolla"] = testate["IDBolla"].asLong();
            righe["IDArticolo"] = 3;
            righe["CodiceArticolo"] = "A1";
            righe["Descrizione"] = "Vite";
            righe["UnitaMisura"] = "Pz";
            righe["Quantita"] = 1;
            righe["Listino"] = 1;
            righe["PrezzoUnitario"] = 100;
            righe["TotaleRiga"] = 100;
            righe["CodiceIva"] = "A";
            righe["IDCodiceIva"] = 10;
            righe.update();
        }
    }
    transazione.commit();
}

// What the command reads and sends, prepared once and straight to the engine: the number's question, each document and
// its rows; the header, all rows, links, marks, the plan; the list as it is then.
class FatturaNuda {
public:
    explicit FatturaNuda(Connection& cn) : cn_(cn) {}

    void emetti()
    {
        cn_.begin();
        leggi(massimo_);
        for (int numero = 1; numero <= bolle; ++numero) {
            bolla_.bindWhole(1, numero);
            leggi(bolla_);
            righe_.bindWhole(1, numero);
            leggi(righe_);
        }
        esegui(testata_);
        const std::int64_t id = sqlite3_last_insert_rowid(db());
        for (int i = 0; i < bolle * (righePerBolla + 1); ++i)
            riga(id);
        for (int numero = 1; numero <= bolle; ++numero) {
            for (int posto : {2, 3})
                legame_.bindWhole(posto, numero);
            legame_.bindWhole(1, id);
            esegui(legame_);
        }
        for (int numero = 1; numero <= bolle; ++numero) {
            marca_.bindWhole(1, numero);
            leggi(marca_);
            segna_.bindWhole(1, numero);
            esegui(segna_);
        }
        leggi(metodo_);
        for (int i = 1; i <= 3; ++i) {
            rata_.bindWhole(1, id);
            esegui(rata_);
        }
        cn_.commit();
        leggi(elenco_);
    }

private:
    sqlite3* db() { return cn_.impl().engine.get(); }

    static void esegui(EngineStatement& s)
    {
        s.step();
        s.reset();
    }

    // Every value is fetched, texts as texts and numbers as numbers.
    static void leggi(EngineStatement& s)
    {
        while (s.step()) {
            for (int i = 0; i < sqlite3_column_count(s.get()); ++i) {
                if (sqlite3_column_type(s.get(), i) == SQLITE_TEXT)
                    benchmark::DoNotOptimize(sqlite3_column_text(s.get(), i));
                else
                    benchmark::DoNotOptimize(sqlite3_column_int64(s.get(), i));
            }
        }
        s.reset();
    }

    void riga(std::int64_t id)
    {
        riga_.bindWhole(1, id);
        riga_.bindWhole(2, 3);
        riga_.bindText(3, "A1");
        riga_.bindText(4, "Vite");
        riga_.bindText(5, "Pz");
        riga_.bindReal(6, 1);
        for (const int posto : {7, 9, 10, 11, 14})
            riga_.bindWhole(posto, 0);
        for (const int posto : {8, 12})
            riga_.bindWhole(posto, 1'000'000);
        riga_.bindText(13, "A");
        esegui(riga_);
    }

    Connection& cn_;
    EngineStatement massimo_{db(),
                             "SELECT MAX(NumeroDocumento) FROM Fatture WHERE AnnoDocumento=2004 AND NumeroRegistro=1"};
    EngineStatement bolla_{db(),
                           "SELECT * FROM Bolle WHERE NumeroDocumento=? AND AnnoDocumento=2004 AND NumeroRegistro=1"};
    EngineStatement righe_{db(), "SELECT * FROM Bolle_Dettagli WHERE IDBolla=? ORDER BY IDRiga"};
    EngineStatement testata_{db(), "INSERT INTO Fatture (NumeroDocumento, AnnoDocumento, NumeroRegistro, IDCliente) "
                                   "VALUES (0, 2004, 1, 7)"};
    EngineStatement riga_{db(), "INSERT INTO Fatture_Dettagli (IDFattura, IDArticolo, CodiceArticolo, Descrizione, "
                                "UnitaMisura, Quantita, Listino, PrezzoUnitario, Sconto1, Sconto2, Sconto3, "
                                "TotaleRiga, CodiceIva, IDCodiceIva, AliquotaIva) VALUES "
                                "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,0)"};
    EngineStatement legame_{db(), "INSERT INTO Fatture_RiferimentoBolle (IDFattura, IDBolla, NumeroBolla, DataBolla) "
                                  "VALUES (?,?,?,38001)"};
    EngineStatement marca_{db(), "SELECT NumeroRegistro, EmessaFattura, NumeroFattura, DataFattura, IDBolla FROM "
                                 "Bolle WHERE IDBolla=? AND NumeroRegistro=1"};
    EngineStatement segna_{
        db(), "UPDATE Bolle SET EmessaFattura='S', NumeroFattura=1, DataFattura='15/01/2004' WHERE IDBolla=?"};
    EngineStatement metodo_{db(), "SELECT * FROM ModalitaPagamento WHERE IDmodalitaPagamento=5"};
    EngineStatement rata_{db(), "INSERT INTO Scadenzario (IDDocumento, IDRegistro, Saldato, Scadenza, avere) VALUES "
                                "(?,1,'0',38031,'€ 160.000,00')"};
    EngineStatement elenco_{db(), "SELECT * FROM Bolle WHERE IDCliente=7 AND AnnoDocumento=2004 AND NumeroRegistro=1 "
                                  "ORDER BY NumeroDocumento"};
};

// At most one and a half times.
void fatturaDaDuecentoDDT(benchmark::State& stato)
{
    constexpr int giri = 12;
    double programma = 1e9;
    double motore = 1e9;
    for (auto _ : stato) {
        ProgrammaDiProva p;
        Connection& cn = p.sessione().cn;
        riempi(cn);
        p.sessione().schermate().get("frmFatturaDaDDT").show();
        auto& albero = dynamic_cast<TreeView&>(p.controllo("tvwClienti"));
        auto& elenco = dynamic_cast<ListView&>(p.controllo("lvwBolleCliente"));
        FatturaNuda nuda(cn);
        const auto libera = [&] {
            cn.execute("UPDATE Bolle SET EmessaFattura='N', NumeroFattura=0");
            p.utente.selectNode(albero, albero.find("c7"));
        };
        for (int i = 0; i < giri; ++i) {
            libera();
            for (std::size_t riga = 0; riga < elenco.rowCount(); ++riga)
                p.utente.tick(elenco, riga);
            p.utente.answer(MsgAnswer::no);
            programma = std::min(programma, secondi([&] { p.utente.click(p.controllo("cmdShow")); }));
            libera();
            motore = std::min(motore, secondi([&] { nuda.emetti(); }));
        }
        if (p.valore("SELECT COUNT(*) FROM Fatture_Dettagli") != std::to_string(2 * giri * bolle * (righePerBolla + 1)))
            stato.SkipWithError("not everything was invoiced");
    }
    stato.counters["program_ms"] = programma * 1e3;
    stato.counters["engine_ms"] = motore * 1e3;
    stato.counters["program/engine"] = programma / motore;
}
BENCHMARK(fatturaDaDuecentoDDT)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace bravona
