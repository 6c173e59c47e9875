#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "support/ArchivioTemporaneo.h"
#include "support/Percorsi.h"

namespace bravona {
namespace {

struct Prova {
    std::string istruzione;
    std::string motore;
    std::vector<std::string> domande;
    std::vector<std::string> righe;
};

struct Elenco {
    std::vector<std::string> preparazione;
    std::vector<Prova> prove;
};

Elenco leggi()
{
    Elenco elenco;
    std::ifstream file(cartellaTest() / "platform/store/istruzioni.txt");
    for (std::string linea; std::getline(file, linea);) {
        if (linea.empty() || linea[0] == '#') {
            continue;
        }
        const std::string resto = linea.size() > 2 ? linea.substr(2) : "";
        switch (linea[0]) {
        case '+':
            elenco.preparazione.push_back(resto);
            break;
        case '=':
            elenco.prove.push_back({resto, {}, {}, {}});
            break;
        case '>':
            elenco.prove.back().motore = resto;
            break;
        case '?':
            elenco.prove.back().domande.push_back(resto);
            break;
        case '|':
            elenco.prove.back().righe.push_back(resto);
            break;
        default:
            ADD_FAILURE() << "not understood: " << linea;
        }
    }
    return elenco;
}

TEST(Istruzioni, OgniIstruzioneDelProgrammaSiTraduceEDaIlSuoRisultato)
{
    const Elenco elenco = leggi();
    ASSERT_GT(elenco.prove.size(), 100U);
    ArchivioTemporaneo archivio;
    for (const std::string& istruzione : elenco.preparazione) {
        archivio.cn.execute(istruzione);
    }
    for (const Prova& prova : elenco.prove) {
        SCOPED_TRACE(prova.istruzione);
        EXPECT_EQ(archivio.cn.translated(prova.istruzione), prova.motore);
        std::vector<std::string> trovate;
        archivio.cn.begin();
        // Twice: translated anew, then from the shapes that are known.
        for (int volta = 0; volta < 2; ++volta) {
            trovate.clear();
            if (prova.domande.empty()) {
                trovate = archivio.righe(prova.istruzione);
            } else {
                archivio.cn.execute(prova.istruzione);
            }
            for (const std::string& domanda : prova.domande) {
                const std::vector<std::string> righe = archivio.righe(domanda);
                trovate.insert(trovate.end(), righe.begin(), righe.end());
            }
            if (!prova.domande.empty()) {
                archivio.cn.rollback();
                archivio.cn.begin();
            }
        }
        archivio.cn.rollback();
        EXPECT_EQ(trovate, prova.righe);
    }
}

}  // namespace
}  // namespace bravona
