#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Tempi.h"
#include "documents/clsCalcoli.h"
#include "platform/store/ConnectionImpl.h"
#include "platform/values/Numeri.h"
#include "support/ContaTasti.h"
#include "support/Percorsi.h"
#include "support/ProgrammaDiProva.h"

// Documents: their registration against the bare engine, their totals, and the keys that one costs.
namespace bravona {

namespace {

constexpr int righe = 100;

// What a registration sends, prepared once and straight to the engine: the number's two questions, the header, its
// rows, the three questions of the plan and its instalments; then the stock of each row.
class RegistrazioneNuda {
public:
    explicit RegistrazioneNuda(Connection& cn) : cn_(cn) {}

    void registra()
    {
        const int numero = prossimo();
        cn_.begin();
        const std::int64_t id = testata(numero);
        for (int i = 0; i < righe; ++i) {
            riga(id, i);
        }
        scadenze(id);
        cn_.commit();
        cn_.begin();
        for (int i = 0; i < righe; ++i) {
            scarica(i % 2 == 0 ? "A1" : "B1");
        }
        cn_.commit();
    }

private:
    sqlite3* db() { return cn_.impl().engine.get(); }

    static void leggi(EngineStatement& s)
    {
        while (s.step()) {
        }
        s.reset();
    }

    int prossimo()
    {
        massimo_.bindWhole(1, 2004);
        massimo_.bindWhole(2, 1);
        massimo_.step();
        const int numero = sqlite3_column_int(massimo_.get(), 0) + 1;
        massimo_.reset();
        uguali_.bindWhole(1, numero);
        uguali_.bindWhole(2, 2004);
        uguali_.bindWhole(3, 1);
        leggi(uguali_);
        return numero;
    }

    std::int64_t testata(int numero)
    {
        int posto = 0;
        for (const std::int64_t n :
             {std::int64_t{numero}, std::int64_t{2004}, std::int64_t{38001}, std::int64_t{7}, std::int64_t{1},
              std::int64_t{0}, std::int64_t{5}, std::int64_t{2}, std::int64_t{0}, std::int64_t{66'000'000},
              std::int64_t{11'000'000}, std::int64_t{55'000'000}, std::int64_t{righe}, std::int64_t{20},
              std::int64_t{55'000'000}, std::int64_t{11'000'000}}) {
            testata_.bindWhole(++posto, n);
        }
        for (const char* testo : {"Rimessa", "Destinatario", "Franco", "", "A vista", "Vendita", "A", "Ordinaria", "",
                                  "", "", "", "", "", "", "", "", ""}) {
            testata_.bindText(++posto, testo);
        }
        for (int i = 0; i < 12; ++i) {
            testata_.bindWhole(++posto, 0);
        }
        testata_.step();
        testata_.reset();
        return sqlite3_last_insert_rowid(db());
    }

    void riga(std::int64_t id, int indice)
    {
        const bool primo = indice % 2 == 0;
        riga_.bindWhole(1, id);
        riga_.bindWhole(2, primo ? 3 : 4);
        riga_.bindText(3, primo ? "A1" : "B1");
        riga_.bindText(4, primo ? "Vite" : "Dado");
        riga_.bindText(5, "Pz");
        riga_.bindWhole(6, 1);
        riga_.bindReal(7, 1);
        riga_.bindWhole(8, 1'000'000);
        riga_.bindWhole(9, 0);
        riga_.bindWhole(10, 0);
        riga_.bindWhole(11, 0);
        riga_.bindWhole(12, 1'000'000);
        riga_.bindText(13, "A");
        riga_.bindWhole(14, 10);
        riga_.step();
        riga_.reset();
    }

    void scadenze(std::int64_t id)
    {
        for (int i = 0; i < 4; ++i) {
            metodo_.bindWhole(1, 5);
            leggi(metodo_);
        }
        for (int i = 1; i <= 3; ++i) {
            rata_.bindWhole(1, id);
            rata_.bindWhole(2, 1);
            rata_.bindText(3, "0");
            rata_.bindWhole(4, 38001 + 30 * i);
            rata_.bindText(5, "€ 2.200,00");
            rata_.step();
            rata_.reset();
        }
    }

    void scarica(const char* codice)
    {
        articolo_.bindText(1, codice);
        articolo_.step();
        const std::int64_t id = sqlite3_column_int64(articolo_.get(), 0);
        const double carico = sqlite3_column_double(articolo_.get(), 5);
        const double scarico = sqlite3_column_double(articolo_.get(), 6);
        const double giacenza = sqlite3_column_double(articolo_.get(), 7);
        const std::int64_t valore = sqlite3_column_int64(articolo_.get(), 8);
        leggi(articolo_);
        aggiorna_.bindWhole(1, 1'000'000);
        aggiorna_.bindReal(2, carico - 1);
        aggiorna_.bindReal(3, giacenza - 1);
        aggiorna_.bindReal(4, scarico + 1);
        aggiorna_.bindWhole(5, valore + 1'000'000);
        aggiorna_.bindWhole(6, 38001);
        aggiorna_.bindWhole(7, id);
        aggiorna_.step();
        aggiorna_.reset();
    }

    Connection& cn_;
    EngineStatement massimo_{db(),
                             "SELECT MAX(NumeroDocumento) FROM Fatture WHERE AnnoDocumento=? AND NumeroRegistro=?"};
    EngineStatement uguali_{db(), "SELECT NumeroDocumento, AnnoDocumento FROM Fatture WHERE NumeroDocumento=? AND "
                                  "AnnoDocumento=? AND NumeroRegistro=?"};
    EngineStatement testata_{
        db(),
        "INSERT INTO Fatture (NumeroDocumento, AnnoDocumento, DataDocumento, IDCliente, NumeroRegistro, "
        "IDDestinazione, "
        "IDmodalitaPagamento, TipoDocumento, Sconto, TotaleDocumento, ImportoTotaleIva, TotaleIvaEsclusa, "
        "NumeroDettagli, "
        "AliquotaIva1, ImponibileIva1, ImportoIva1, ModalitaPagamento, SpedizioneAMezzo, Porto, Vettore, ColliAspetto, "
        "CausaleTrasporto, CodiceIva1, DescrizioneIva1, CodiceIva2, DescrizioneIva2, CodiceIva3, DescrizioneIva3, "
        "CodiceIva4, "
        "DescrizioneIva4, CodiceIva5, DescrizioneIva5, NoteGeneriche, NoteEsenzioneIVA, AliquotaIva2, ImponibileIva2, "
        "ImportoIva2, AliquotaIva3, ImponibileIva3, ImportoIva3, AliquotaIva4, ImponibileIva4, ImportoIva4, "
        "AliquotaIva5, "
        "ImponibileIva5, ImportoIva5) VALUES "
        "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,"
        "?,?,?,?,?)"};
    EngineStatement riga_{db(),
                          "INSERT INTO Fatture_Dettagli (IDFattura, IDArticolo, CodiceArticolo, Descrizione, "
                          "UnitaMisura, Listino, Quantita, PrezzoUnitario, Sconto1, Sconto2, Sconto3, TotaleRiga, "
                          "CodiceIva, IDCodiceIva) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)"};
    EngineStatement metodo_{db(), "SELECT * FROM ModalitaPagamento WHERE IDmodalitaPagamento=?"};
    EngineStatement rata_{
        db(), "INSERT INTO Scadenzario (IDDocumento, IDRegistro, Saldato, Scadenza, avere) VALUES (?,?,?,?,?)"};
    EngineStatement articolo_{db(), "SELECT IDArticolo,CodiceMagazzino,DataUltimoScarico,CostoUltimo,CostoMedio,Carico,"
                                    "Scarico,Giacenza,ScaricoValore FROM Articoli WHERE CodiceMagazzino = ?"};
    EngineStatement aggiorna_{db(),
                              "UPDATE Articoli SET CostoUltimo=?, Carico=?, Giacenza=?, Scarico=?, ScaricoValore=?, "
                              "DataUltimoScarico=? WHERE IDArticolo=?"};
};

// Registering an invoice of 100 rows by its command, against the same writes prepared and straight to the engine: at
// most one and a half times.
void registrazione(benchmark::State& stato)
{
    constexpr int giri = 12;
    double programma = 1e9;
    double motore = 1e9;
    for (auto _ : stato) {
        ProgrammaDiProva p;
        RegistrazioneNuda nuda(p.sessione().cn);
        for (int i = 0; i < giri; ++i) {
            p.componiFattura(righe);
            Control& registra = p.controllo("cmdDocumento[0]");
            programma = std::min(programma, secondi([&] { p.utente.click(registra); }));
            p.utente.click(p.controllo("cmdDocumento[1]"));
            p.utente.click(p.controllo("cmdAzioni[1]"));
            motore = std::min(motore, secondi([&] { nuda.registra(); }));
        }
        if (p.valore("SELECT COUNT(*) FROM Fatture_Dettagli") != std::to_string(2 * giri * righe)) {
            stato.SkipWithError("not everything was registered");
        }
    }
    stato.counters["program_ms"] = programma * 1e3;
    stato.counters["engine_ms"] = motore * 1e3;
    stato.counters["program/engine"] = programma / motore;
}
BENCHMARK(registrazione)->Iterations(1)->Unit(benchmark::kMillisecond);

class DueAliquote final : public TabellaCodiciIva {
public:
    std::string GetCodiceAliquotaIvaFromID(std::int32_t) const override { return {}; }
    std::string GetDescrizioneAliquotaIvaFromID(std::int32_t) const override { return {}; }
    std::int16_t GetValoreAliquotaIvaFromID(std::int32_t) const override { return 0; }
    std::int32_t GetIDAliquotaIvaFromCodice(const std::string&) const override { return 0; }
    std::string GetDescrizioneAliquotaIvaFromCodice(const std::string&) const override { return "Aliquota"; }
    std::int16_t GetValoreAliquotaIvaFromCodice(const std::string& codice) const override
    {
        return codice == "A" ? std::int16_t{22} : std::int16_t{10};
    }
    void Refresh() override {}
};

std::vector<RigaDocumento> milleRighe()
{
    std::vector<RigaDocumento> mille(1'000);
    int i = 0;
    for (RigaDocumento& riga : mille) {
        riga.IDArticolo = 12;
        riga.TotaleRiga = Currency::fromTenThousandths(10'000 + i * 12'300);
        riga.CodiceIva = i % 3 == 0 ? "B" : "A";
        ++i;
    }
    return mille;
}

// The totals of 1,000 rows: under a millisecond.
void totali(benchmark::State& stato)
{
    const DueAliquote tabella;
    const std::vector<RigaDocumento> mille = milleRighe();
    clsCalcoli calcoli(tabella);
    for (auto _ : stato) {
        calcoli.Calcola(mille);
        benchmark::DoNotOptimize(calcoli.TotaleImportoDocumento());
    }
}
BENCHMARK(totali)->Unit(benchmark::kMicrosecond);

void tastiDiUnaFattura(benchmark::State& stato)
{
    int tasti = 0;
    for (auto _ : stato) {
        tasti = contaTasti(cartellaTest() / "journeys" / "documents" / "five_rows_by_keys.journey");
    }
    stato.counters["keys"] = tasti;
    stato.counters["keys at most"] = tastiFatturaCinqueRighe;
}
BENCHMARK(tastiDiUnaFattura)->Iterations(1);

}  // namespace

}  // namespace bravona
