#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QPdfWriter>
#include <algorithm>
#include <stdexcept>

#include "Applicazione.h"
#include "Tempi.h"
#include "platform/qt/PagePainter.h"
#include "printing/arptFatturaImmediatavb.h"
#include "support/DocumentoDiProva.h"

// An invoice of 1,000 rows: pouring it into its page records and laying those out, against painting the pages to PDF.
// All take turns in the same run, and the best time of each counts. Laying out is to take a tenth of painting at most.
namespace bravona {

namespace {

constexpr int giri = 5;

void dipingi(const Pages& pagine)
{
    constexpr int risoluzione = 1200;
    QBuffer carta;
    carta.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&carta);
        pdf.setResolution(risoluzione);
        pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        QPainter pennello(&pdf);
        const QRectF foglio(0, 0, pagine.width * risoluzione / 1440.0, pagine.height * risoluzione / 1440.0);
        for (std::size_t i = 0; i < pagine.pages.size(); ++i) {
            if (i > 0) {
                pdf.newPage();
            }
            pennello.save();
            pagePainter::fit(pennello, pagine, foglio);
            pagePainter::paint(pennello, pagine.pages[i]);
            pennello.restore();
        }
    }
    if (carta.size() == 0) {
        throw std::runtime_error("nothing was painted");
    }
}

void stampaFattura(benchmark::State& stato)
{
    const Applicazione applicazione;

    DocumentoDiProva documento;
    documento.righe = 1000;
    documento.aliquote = 5;
    const Report report = arptFatturaImmediatavb();
    double dati = 1e9;
    double impagina = 1e9;
    double dipinge = 1e9;
    std::size_t fogli = 0;
    for (auto _ : stato) {
        for (int giro = 0; giro < giri; ++giro) {
            Recordset origine = documento.apri();
            Recordset stampa;
            dati = std::min(dati, secondi([&] {
                                stampa = CostruisciRecordsetStampa(origine, {}, "127", "1", {}, righeFatturaImmediata);
                            }));
            Pages pagine;
            impagina = std::min(impagina, secondi([&] { pagine = componi(report, stampa, Date()); }));
            dipinge = std::min(dipinge, secondi([&] { dipingi(pagine); }));
            fogli = pagine.pages.size();
        }
    }
    stato.counters["pages"] = static_cast<double>(fogli);
    stato.counters["records_ms"] = dati * 1e3;
    stato.counters["layout_ms"] = impagina * 1e3;
    stato.counters["paint_ms"] = dipinge * 1e3;
    stato.counters["layout/paint"] = impagina / dipinge;
}

BENCHMARK(stampaFattura)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

}  // namespace bravona
