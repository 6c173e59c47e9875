#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QImage>
#include <algorithm>
#include <stdexcept>

#include "Applicazione.h"
#include "Magazzino.h"
#include "Tempi.h"
#include "platform/qt/PagePainter.h"
#include "printing/arptListinovb.h"
#include "printing/modElenchi.h"
#include "support/ProgrammaDiProva.h"

// A price list of 50,000 articles: reading it and laying it out until its first page is painted, against the engine's
// own statement and the painting of that page alone. It is to take 1.5 times of that at most, and leafing through all
// its pages is not to gather them in memory.
namespace bravona {

namespace {

constexpr int articoli = 50'000;
constexpr int giri = 7;

void dipingiPrima(const Pages& pagine)
{
    QImage foglio(pagine.width / 15, pagine.height / 15, QImage::Format_RGB32);  // 96 dots an inch
    foglio.fill(Qt::white);
    QPainter pennello(&foglio);
    pagePainter::fit(pennello, pagine, foglio.rect());
    pagePainter::paint(pennello, pagine.pages.at(0));
}

double occupati()
{
    constexpr double mega = 1024.0 * 1024.0;
    const struct mallinfo2 stato = mallinfo2();
    return static_cast<double>(stato.uordblks + stato.hblkhd) / mega;
}

void stampaListino(benchmark::State& stato)
{
    const Applicazione applicazione;

    ProgrammaDiProva prova;
    Sessione& sessione = prova.sessione();
    aggiungiArticoli(sessione, articoli, 1000);
    SceltaListino scelta;
    scelta.listino = 2;
    const std::string istruzione = InterrogazioneListino(scelta);
    double prepara = 1e9;
    double nudo = 1e9;
    double pittura = 1e9;
    double dati = 0;
    double sfogliate = 0;
    std::size_t fogli = 0;
    for (auto _ : stato) {
        for (int giro = 0; giro < giri; ++giro) {
            const double prima = occupati();
            Pages pagine;
            prepara = std::min(prepara, secondi([&] {
                                   pagine = componiSuRichiesta(arptListinovb(), sessione.cn.open(istruzione), Date());
                                   dipingiPrima(pagine);
                               }));
            dati = occupati() - prima;
            pittura = std::min(pittura, secondi([&] { dipingiPrima(pagine); }));
            std::size_t righe = 0;
            for (const Page& pagina : pagine.pages) {
                righe += static_cast<std::size_t>(pagina.detailRows);
            }
            if (righe != articoli) {
                throw std::runtime_error("articles are missing");
            }
            sfogliate = occupati() - prima - dati;
            fogli = pagine.pages.size();
            pagine = {};
            std::vector<std::vector<std::string>> testi;
            nudo = std::min(nudo, secondi([&] { testi = nuda(sessione.cn, istruzione); }));
        }
    }
    stato.counters["pages"] = static_cast<double>(fogli);
    stato.counters["first_page_ms"] = prepara * 1e3;
    stato.counters["bare_ms"] = nudo * 1e3;
    stato.counters["paint_ms"] = pittura * 1e3;
    stato.counters["first_page/bare"] = prepara / (nudo + pittura);
    stato.counters["data_MB"] = dati;
    stato.counters["leafing_MB"] = sfogliate;
}

BENCHMARK(stampaListino)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

}  // namespace bravona
