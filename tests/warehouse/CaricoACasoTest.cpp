#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "documents/modScarico.h"
#include "support/ArchivioTemporaneo.h"
#include "warehouse/Movimento.h"

namespace bravona {
namespace {

// The books of one article in whole cents and hundredths of a piece, kept by plain arithmetic.
struct Libro {
    std::int64_t carico = 100'000, scarico = 0, giacenza = 100'000;       // hundredths of a piece
    std::int64_t valore = 1'000'000, venduto = 0, ultimo = 0, medio = 0;  // cents; ten-thousandths of the average
    int data = 0;

    void media() { medio = std::llround(static_cast<double>(valore) * 10'000 / static_cast<double>(carico)); }
};

struct Riga {
    std::size_t articolo;
    std::int64_t pezzi, prezzo, totale;
    bool caricata = false;
};

constexpr std::array<const char*, 3> codici{"A", "B", "C"};

class Sequenza : public ::testing::Test {
protected:
    Sequenza()
    {
        archivio.cn.execute("DELETE * FROM Articoli");
        for (const char* codice : codici)
            archivio.cn.execute(
                std::string("INSERT INTO Articoli (CodiceMagazzino, Carico, Scarico, Giacenza, CaricoValore, "
                            "ScaricoValore, CostoUltimo, CostoMedio) VALUES ('") +
                codice + "', 1000, 0, 1000, 10000, 0, 0, 0)");
    }

    std::int64_t tra(std::int64_t minimo, std::int64_t massimo)
    {
        return std::uniform_int_distribution<std::int64_t>(minimo, massimo)(caso);
    }
    Riga rigaACaso()
    {
        Riga riga{static_cast<std::size_t>(tra(0, 2)), tra(1, 2'000), tra(1, 10'000), 0};
        riga.totale = riga.pezzi * riga.prezzo / 100 * tra(50, 100) / 100;
        return riga;
    }
    static RigaDocumento documento(const Riga& riga)
    {
        RigaDocumento valore;
        valore.IDArticolo = 1;
        valore.CodiceArticolo = codici.at(riga.articolo);
        valore.Quantita = static_cast<double>(riga.pezzi) / 100;
        valore.PrezzoUnitario = Currency::fromTenThousandths(riga.prezzo * 100);
        valore.TotaleRiga = Currency::fromTenThousandths(riga.totale * 100);
        valore.Aggiornato = riga.caricata ? aggiornato::si : aggiornato::no;
        return valore;
    }
    static std::vector<RigaDocumento> documenti(const std::vector<Riga>& righe)
    {
        std::vector<RigaDocumento> valori;
        for (const Riga& riga : righe)
            valori.push_back(documento(riga));
        return valori;
    }
    static Date giorno(int quanti) { return Date::fromDayNumber(38'000 + quanti); }

    void vendi(int data)
    {
        const std::vector<Riga> righe{rigaACaso(), rigaACaso()};
        ScaricaArticoli(archivio.cn, {}, documenti(righe), giorno(data));
        for (const Riga& riga : righe) {
            Libro& libro = libri.at(riga.articolo);
            libro.carico -= riga.pezzi;
            libro.giacenza -= riga.pezzi;
            libro.scarico += riga.pezzi;
            libro.venduto += riga.totale;
            libro.ultimo = riga.prezzo;
        }
    }

    // The receipt as it is entered, or as it stands after a change: its new rows come in, the others by difference.
    void ricevi(std::vector<Riga> righe, const std::vector<Riga>& vecchie, int data)
    {
        Movimento movimento;
        movimento.IDMovimenti = id;
        movimento.AnnoDocumento = 2004;
        movimento.DataDocumento = movimento.DataOperazione = giorno(data);
        movimento.righe = documenti(righe);
        Transaction transazione(archivio.cn);
        if (id == 0)
            id = scriviMovimento(archivio.cn, movimento);
        else
            riscriviMovimento(archivio.cn, movimento, leggiMovimento(archivio.cn, id).righe);
        transazione.commit();
        for (std::size_t i = 0; i < righe.size(); ++i) {
            Libro& libro = libri.at(righe[i].articolo);
            const Riga nulla{0, 0, 0, 0};
            const Riga& vecchia = righe[i].caricata ? vecchie.at(i) : nulla;
            libro.data = data;
            libro.carico += righe[i].pezzi - vecchia.pezzi;
            libro.giacenza += righe[i].pezzi - vecchia.pezzi;
            libro.valore += righe[i].totale - vecchia.totale;
            if (!righe[i].caricata || righe[i].prezzo != vecchia.prezzo)
                libro.ultimo = righe[i].prezzo;
            if (!righe[i].caricata || righe[i].totale != vecchia.totale)
                libro.media();
            righe[i].caricata = true;
        }
        tenute = std::move(righe);
    }

    void correggi(int data)
    {
        std::vector<Riga> righe = tenute;
        for (int cambi = 0; cambi < 2; ++cambi) {
            Riga& riga = righe.at(static_cast<std::size_t>(tra(0, static_cast<std::int64_t>(righe.size()) - 1)));
            const Riga altra = rigaACaso();
            switch (tra(0, 4)) {
            case 0:
                riga.pezzi = altra.pezzi;
                break;
            case 1:
                riga.prezzo = altra.prezzo;
                break;
            case 2:
                riga.totale = altra.totale;
                break;
            case 3:
                righe.push_back(altra);
                break;
            default:
                if (righe.size() > 1)
                    righe.erase(righe.begin());
            }
        }
        ricevi(righe, tenute, data);
    }

    void confronta()
    {
        Recordset articoli = archivio.cn.open("SELECT * FROM Articoli ORDER BY CodiceMagazzino");
        for (const Libro& libro : libri) {
            const auto centesimi = [&](const char* campo) {
                return std::llround(articoli[campo].asCurrency().toDouble() * 100);
            };
            EXPECT_NEAR(articoli["Carico"].asDouble() * 100, static_cast<double>(libro.carico), 1e-6);
            EXPECT_NEAR(articoli["Scarico"].asDouble() * 100, static_cast<double>(libro.scarico), 1e-6);
            EXPECT_NEAR(articoli["Giacenza"].asDouble() * 100, static_cast<double>(libro.giacenza), 1e-6);
            EXPECT_EQ(centesimi("CaricoValore"), libro.valore);
            EXPECT_EQ(centesimi("ScaricoValore"), libro.venduto);
            EXPECT_EQ(centesimi("CostoUltimo"), libro.ultimo);
            EXPECT_NEAR(articoli["CostoMedio"].asCurrency().toDouble() * 10'000, static_cast<double>(libro.medio), 1);
            const auto data = articoli["DataUltimoCarico"].value();
            EXPECT_EQ(comeTesto(data), libro.data == 0 ? "Null" : giorno(libro.data).text());
            articoli.moveNext();
        }
    }

    ArchivioTemporaneo archivio;
    std::array<Libro, 3> libri;
    std::mt19937_64 caso{20040115};
    std::int32_t id = 0;
    std::vector<Riga> tenute;  // of the last receipt
};

TEST_F(Sequenza, SalesReceiptsAndCorrectionsAgreeWithPlainArithmetic)
{
    constexpr int passi = 400;
    for (int passo = 1; passo <= passi && !HasFailure(); ++passo) {
        SCOPED_TRACE("step " + std::to_string(passo));
        const auto scelta = tra(0, 2);
        if (scelta == 0)
            vendi(passo);
        else if (scelta == 1 && id != 0)
            correggi(passo);
        else {
            id = 0;
            ricevi({rigaACaso(), rigaACaso(), rigaACaso()}, {}, passo);
        }
        confronta();
    }
}

}  // namespace
}  // namespace bravona
