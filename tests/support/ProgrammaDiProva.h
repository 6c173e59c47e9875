#pragma once

#include <filesystem>
#include <string>

#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/settings/Settings.h"
#include "program/Programma.h"
#include "support/ArchivioTemporaneo.h"
#include "support/UtenteDiProva.h"

namespace bravona {

// The whole program on the scripted user, started on the smallest archive of the year 2004 with one customer (7,
// "Rossi"), a payment in three instalments, and the articles "A1" and "B1".
class ProgrammaDiProva {
public:
    ProgrammaDiProva();
    ~ProgrammaDiProva();
    ProgrammaDiProva(const ProgrammaDiProva&) = delete;
    ProgrammaDiProva& operator=(const ProgrammaDiProva&) = delete;

    UtenteDiProva utente;
    MemorySettings impostazioni;
    FixedClock orologio{Date::fromYmd(2004, 1, 15).value()};
    Files file;

    [[nodiscard]] Sessione& sessione() { return programma_->sessione(); }
    [[nodiscard]] std::filesystem::path cartella() const
    {
        return std::filesystem::path(cartella_.file("x")).parent_path();
    }
    [[nodiscard]] std::filesystem::path archivio() const { return cartella() / "Database" / "DBBVEURO.mdb"; }

    void menu(const std::string& voce);
    // A control of the window in front; fails the test when there is none.
    Control& controllo(const std::string& nome);
    // A document for the customer, composed up to registration, with so many rows; kinds as the screens know them.
    void componi(int tipoDocumento, int righe);
    void componiFattura(int righe);
    // A document of 2004 in the main register, on the screen that changes it.
    void apri(std::int16_t tipoDocumento, std::int32_t numero);
    // First column of the first row.
    [[nodiscard]] std::string valore(const std::string& statement);

private:
    CartellaTemporanea cartella_;
    std::unique_ptr<Programma> programma_;
};

}  // namespace bravona
