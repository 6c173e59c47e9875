#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/settings/Settings.h"
#include "program/Programma.h"
#include "session/modMain.h"
#include "support/UtenteDiProva.h"
#include "support/journey/ProgramFolder.h"

namespace bravona {

// A session on a bare archive of its own, opened as the start opens it, with the scripted user in front of it.
class ConArchivio : public testing::Test {
protected:
    ConArchivio()
    {
        cartella.fill(Delivery::bare);
        ApriConnessione(sessione, cartella.archive().string());
    }
    ~ConArchivio() override { utente.screens().clear(); }

    void esegui(const std::string& istruzione) { sessione.cn.execute(istruzione); }
    // The first row of a query, its fields parted by bars; "" without a row.
    std::string riga(const std::string& istruzione)
    {
        Recordset record = sessione.cn.open(istruzione);
        std::string testo;
        for (std::size_t colonna = 0; !record.eof() && colonna < record.columns().size(); ++colonna) {
            testo += (colonna == 0 ? "" : "|") + record[colonna].text();
        }
        return testo;
    }
    [[nodiscard]] std::string ultimoMessaggio()
    {
        return utente.boxCount() == 0 ? std::string() : utente.lastBox().title + ": " + utente.lastBox().text;
    }

    UtenteDiProva utente;
    MemorySettings settings;
    FixedClock orologio{*Date::fromYmd(2004, 1, 15)};
    Files files;
    ProgramFolder cartella;
    Programma programma{Ambiente{utente, settings, orologio, files, cartella.path().string()}};
    Sessione& sessione = programma.sessione();
};

}  // namespace bravona
