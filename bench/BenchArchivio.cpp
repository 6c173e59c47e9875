#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <string>

#include "Tempi.h"
#include "platform/store/ConnectionImpl.h"
#include "support/ArchivioTemporaneo.h"

// The store against its engine, in ratios of one run; the best time of each counts.
namespace bravona {

namespace {

constexpr std::array istruzioni = {
    "SELECT * FROM ListiniPrezzi WHERE IDarticolo = 3 AND IDlistino = 2",
    "SELECT MAX(NumeroDocumento) As UltimoDocumento FROM Fatture WHERE AnnoDocumento=2004 AND NumeroRegistro=1",
    "SELECT IDArticolo,CodiceMagazzino,DataUltimoScarico,CostoUltimo,CostoMedio,Carico,Scarico,Giacenza,ScaricoValore "
    "FROM Articoli WHERE CodiceMagazzino = \"A1\"",
    "SELECT * FROM CLienti WHERE IDcliente = 7",
    "SELECT * FROM Bolle WHERE IDCliente=7 AND month(DataDocumento) = 02 AND AnnoDocumento =2004 AND NumeroRegistro=1 "
    "ORDER BY NumeroDocumento",
    "UPDATE ListiniPrezzi SET Prezzo=Prezzo +(Prezzo/100) * 10 WHERE IDArticolo=3 AND IDlistino=1",
    "UPDATE Bolle INNER JOIN Fatture_RiferimentoBolle ON Bolle.IDbolla = Fatture_RiferimentoBolle.IDBolla SET "
    "Bolle.EmessaFattura = 'N', Bolle.NumeroFattura = 0, Bolle.DataFattura ='' WHERE "
    "Fatture_RiferimentoBolle.IDFattura=2",
    "Update Scadenzario SET Avere='1234,5' Where ID =1",
    "DELETE * FROM Fatture_Dettagli WHERE IDFattura=1",
    "INSERT INTO TabellaCodiciIVA (AliquotaIVA,CodiceIVA,Descrizione) VALUES (10,'R', 'Ridotta')",
    "SELECT Bolle.*, Format(DataDocumento,'dd/mm/yyyy') AS DataF, Clienti.Cliente, Clienti.Indirizzo, "
    "Bolle_Dettagli.Descrizione, DestinazioneMerceClienti.Destinazione, DestinazioneMerceClienti.Indirizzo FROM "
    "(DestinazioneMerceClienti RIGHT JOIN (Clienti INNER JOIN Bolle ON Clienti.IDcliente = Bolle.IDcliente) ON "
    "DestinazioneMerceClienti.IDdestinazione = Bolle.IDDestinazione) LEFT JOIN Bolle_Dettagli ON Bolle.IDbolla = "
    "Bolle_Dettagli.IDbolla WHERE NumeroDocumento=1 AND AnnoDocumento=2004 AND NumeroRegistro=1 AND "
    "Bolle_Dettagli.CodiceArticolo <> '***F' ORDER BY Bolle_Dettagli.IDriga;",
};

// A statement of a new shape is to cost at most twice the engine's own preparing, one of a known shape a quarter of it.
void traduzione(benchmark::State& stato)
{
    constexpr int giri = 15;
    constexpr int volte = 100;
    ArchivioTemporaneo archivio;
    Connection::Impl& impl = archivio.cn.impl();
    double peggioreNuova = 0;
    double peggioreNota = 0;
    double tutteNuova = 0;
    double tutteNota = 0;
    double tuttePrepara = 0;
    for (auto _ : stato) {
        for (const std::string_view istruzione : istruzioni) {
            const std::string sql = impl.translation(istruzione, {}).sql;
            const double prepara = migliore(giri, [&] {
                for (int i = 0; i < volte; ++i) {
                    const EngineStatement pronta(impl.engine.get(), sql);
                    benchmark::DoNotOptimize(pronta.get());
                }
            });
            const double nuova = migliore(giri, [&] {
                for (int i = 0; i < volte; ++i) {
                    benchmark::DoNotOptimize(impl.translation(istruzione, {}));
                }
            });
            const double nota = migliore(giri, [&] {
                for (int i = 0; i < volte; ++i) {
                    PreparedStatement& pronta = impl.prepare(istruzione, {});
                    impl.binder.bind(pronta.engine, pronta.translation, impl.tokens);
                }
            });
            peggioreNuova = std::max(peggioreNuova, nuova / prepara);
            peggioreNota = std::max(peggioreNota, nota / prepara);
            tutteNuova += nuova;
            tutteNota += nota;
            tuttePrepara += prepara;
        }
    }
    stato.counters["new/prepare"] = tutteNuova / tuttePrepara;
    stato.counters["new/prepare worst"] = peggioreNuova;
    stato.counters["known/prepare"] = tutteNota / tuttePrepara;
    stato.counters["known/prepare worst"] = peggioreNota;
}
BENCHMARK(traduzione)->Iterations(1)->Unit(benchmark::kMillisecond);

void aggiungiFattura(Connection& cn, int numero)
{
    Recordset rs = cn.openTable("Fatture");
    rs.addNew();
    rs["NumeroDocumento"] = numero;
    rs["AnnoDocumento"] = 2004;
    rs["NumeroRegistro"] = 1;
    rs["IDCliente"] = numero % 500;
    rs["ModalitaPagamento"] = "Ric. Banc. 30/60 gg. F.M.";
    rs.update();
}

// Opening a table to add a row is to cost the same whatever the archive holds. The row itself, once it is sent, meets
// more pages of a larger archive, each to be decrypted: told apart.
void aggiunta(benchmark::State& stato)
{
    constexpr int giri = 40;
    constexpr int volte = 200;
    constexpr int molti = 100'000;
    ArchivioTemporaneo vuoto;
    ArchivioTemporaneo pieno;
    const auto aggiungi = [](Connection& cn, int primo, int quanti) {
        for (int i = 0; i < quanti; ++i) {
            aggiungiFattura(cn, primo + i);
        }
    };
    const auto apri = [](Connection& cn) {
        for (int i = 0; i < volte; ++i) {
            Recordset rs = cn.openTable("Fatture");
            rs.addNew();
            rs["NumeroDocumento"] = i;
            rs.cancelUpdate();
        }
    };
    double apreVuoto = 1e9;
    double aprePieno = 1e9;
    double suVuoto = 1e9;
    double suPieno = 1e9;
    for (auto _ : stato) {
        Transaction tutto(pieno.cn);
        aggiungi(pieno.cn, 1, molti);
        tutto.commit();
        for (int i = 0; i < giri; ++i) {
            apreVuoto = std::min(apreVuoto, secondi([&] { apri(vuoto.cn); }));
            aprePieno = std::min(aprePieno, secondi([&] { apri(pieno.cn); }));
            // The additions alone: what a commit waits for is the disk.
            Transaction uno(vuoto.cn);
            suVuoto = std::min(suVuoto, secondi([&] { aggiungi(vuoto.cn, 1 + i * volte, volte); }));
            uno.commit();
            Transaction altro(pieno.cn);
            suPieno = std::min(suPieno, secondi([&] { aggiungi(pieno.cn, molti + 1 + i * volte, volte); }));
            altro.commit();
        }
    }
    stato.counters["open_us"] = apreVuoto / volte * 1e6;
    stato.counters["open 100000/empty"] = aprePieno / apreVuoto;
    stato.counters["row_us"] = suVuoto / volte * 1e6;
    stato.counters["row 100000/empty"] = suPieno / suVuoto;
}
BENCHMARK(aggiunta)->Iterations(1)->Unit(benchmark::kMillisecond);

constexpr int righe = 100;

void righeColRecordset(Connection& cn, int fattura)
{
    Recordset rs = cn.openTable("Fatture_Dettagli");
    for (int i = 0; i < righe; ++i) {
        rs.addNew();
        rs["IDFattura"] = fattura;
        rs["IDArticolo"] = i;
        rs["CodiceArticolo"] = "VITE-4X30";
        rs["Descrizione"] = "Vite zincata a testa svasata 4x30, confezione da 200";
        rs["UnitaMisura"] = "Pz";
        rs["Listino"] = 1;
        rs["Quantita"] = 2.5;
        rs["PrezzoUnitario"] = Currency::fromTenThousandths(123'400);
        rs["Sconto1"] = 10;
        rs["Sconto2"] = 0;
        rs["Sconto3"] = 0;
        rs["TotaleRiga"] = Currency::fromTenThousandths(277'650);
        rs["CodiceIva"] = "O";
        rs["IDCodiceIva"] = 2;
        rs.update();
    }
}

void righeColMotore(Connection& cn, int fattura)
{
    EngineStatement s(cn.impl().engine.get(),
                      "INSERT INTO Fatture_Dettagli (IDFattura, IDArticolo, CodiceArticolo, Descrizione, UnitaMisura, "
                      "Listino, Quantita, PrezzoUnitario, Sconto1, Sconto2, Sconto3, TotaleRiga, CodiceIva, "
                      "IDCodiceIva) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int i = 0; i < righe; ++i) {
        s.bindWhole(1, fattura);
        s.bindWhole(2, i);
        s.bindText(3, "VITE-4X30");
        s.bindText(4, "Vite zincata a testa svasata 4x30, confezione da 200");
        s.bindText(5, "Pz");
        s.bindWhole(6, 1);
        s.bindReal(7, 2.5);
        s.bindWhole(8, 123'400);
        s.bindWhole(9, 10);
        s.bindWhole(10, 0);
        s.bindWhole(11, 0);
        s.bindWhole(12, 277'650);
        s.bindText(13, "O");
        s.bindWhole(14, 2);
        s.step();
        s.reset();
    }
}

// The rows of a document through a record set, against the same rows straight to the engine.
void righeDiDocumento(benchmark::State& stato)
{
    constexpr int giri = 40;
    ArchivioTemporaneo archivio;
    double recordset = 1e9;
    double motore = 1e9;
    double recordsetTutto = 1e9;
    double motoreTutto = 1e9;
    int fattura = 0;
    for (auto _ : stato) {
        for (int i = 0; i < giri; ++i) {
            const auto transazione = [&](double& soleRighe, double& tutta, auto scrivi) {
                tutta = std::min(tutta, secondi([&] {
                                     Transaction tutto(archivio.cn);
                                     soleRighe = std::min(soleRighe, secondi([&] { scrivi(archivio.cn, ++fattura); }));
                                     tutto.commit();
                                 }));
            };
            transazione(recordset, recordsetTutto, righeColRecordset);
            transazione(motore, motoreTutto, righeColMotore);
        }
    }
    stato.counters["recordset_us"] = recordset / righe * 1e6;
    stato.counters["engine_us"] = motore / righe * 1e6;
    stato.counters["recordset/engine rows"] = recordset / motore;
    stato.counters["recordset/engine transaction"] = recordsetTutto / motoreTutto;
}
BENCHMARK(righeDiDocumento)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace bravona
