#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMainWindow>
#include <algorithm>
#include <filesystem>

#include "ArchivioConsegnato.h"
#include "Tempi.h"
#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/qt/QtDesktop.h"
#include "platform/settings/Settings.h"
#include "program/Programma.h"
#include "support/ArchivioTemporaneo.h"

// The start up to the main window, splash aside, against a bare main window of the toolkit and one opening of the
// archive (whose key is derived there): at most 0.3 seconds more.
namespace bravona {

namespace {

void avvio(benchmark::State& stato)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argomenti = 1;
    char nome[] = "bench";
    char* valori[] = {nome, nullptr};
    constexpr int giri = 5;
    double programma = 1e9;
    double nudo = 1e9;
    for (auto _ : stato) {
        QApplication applicazione(argomenti, valori);
        const CartellaTemporanea cartella;
        const std::filesystem::path programFolder = std::filesystem::path(cartella.file("x")).parent_path();
        const std::string archivio = archivioConsegnato(programFolder);
        for (int i = 0; i < giri; ++i) {
            nudo = std::min(nudo, secondi([&] {
                                QMainWindow finestra;
                                finestra.show();
                                QApplication::processEvents();
                                Connection cn;
                                cn.open(archivio, passwordArchivio);
                            }));
            MemorySettings impostazioni;
            impostazioni.save("Impostazioni", "PercorsoDB", archivio);
            const FixedClock orologio(Date::fromYmd(2004, 1, 15).value());
            FixedClock oggi = orologio;
            Files file;
            QtDesktop desktop(nullptr);
            desktop.setFiles(file);
            desktop.setTimerScale(0);
            Programma p({desktop, impostazioni, oggi, file, programFolder.string()});
            programma = std::min(programma, secondi([&] {
                                     p.avvia();
                                     QApplication::processEvents();
                                 }));
            if (desktop.mainWindow() == nullptr) {
                stato.SkipWithError("the main window does not stand");
            }
            desktop.dropWindows();
            desktop.screens().clear();
        }
    }
    stato.counters["program_ms"] = programma * 1e3;
    stato.counters["bare_ms"] = nudo * 1e3;
    stato.counters["more_ms (at most 300)"] = (programma - nudo) * 1e3;
}
BENCHMARK(avvio)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace bravona
