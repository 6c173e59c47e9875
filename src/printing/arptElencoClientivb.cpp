#include "printing/arptElencoClientivb.h"

#include <array>
#include <string>

#include "printing/DisegnoElenco.h"

namespace bravona {

namespace {

constexpr double riga = 4.1;       // height of a line of a party's block
constexpr double primaRiga = 0.9;  // its first line

struct Voce {
    const char* etichetta;
    const char* didascalia;
    const char* nome;
    const char* colonna;
    double x, larghezzaDidascalia, larghezza;  // mm
    int riga;
};

// The telephone stands beside the name and once more beside the bank.
constexpr std::array<Voce, 7> voci{{{"Label2", "P.IVA:", "PartitaIva", "PartitaIva", 99, 14, 30, 0},
                                    {"Label3", "Telefono:", "Telefono", "Telefono", 146, 15, 29, 0},
                                    {"Label4", "FAX:", "Fax", "Fax", 99, 14, 30, 1},
                                    {"Label6", "Cellulare:", "TelefonoCellulare", "TelefonoCellulare", 146, 15, 29, 1},
                                    {"Label7", "E-mail:", "PostaElettronica", "PostaElettronica", 99, 14, 77, 2},
                                    {"Label8", "Banca:", "Banca", "Banca", 1, 12, 83, 3},
                                    {"Label5", "Telefono:", "Telefono2", "Telefono", 99, 14, 30, 3}}};

}  // namespace

Report arptElencoClientivb()
{
    Report report = ListaVuota("arptElencoClientivb", "Bravona - Anteprima Elenco Clienti", "Section3");
    ReportSection& testata = report["H"];
    testata.controls.push_back(Etichetta("Label1", "Elenco Clienti", {0, 0, larghezzaElenco, 9}, {15, 9, true}));
    testata.controls.push_back(Filo(0, 10, larghezzaElenco, 0, grigioFilo, 16));
    testata.height = mm(11);

    ReportSection& blocco = report["Section1"];
    const auto campo = [&blocco](const char* colonna, double x, double larghezza, int numero, Stile stile) {
        blocco.controls.push_back(Campo(colonna, {x, primaRiga + numero * riga, larghezza, riga}, stile));
    };
    campo("Cliente", 1, 60, 0, {9.5, 8, true});
    campo("ClienteSecondaRiga", 62, 34, 0, {8.5, 7});
    campo("Indirizzo", 1, 96, 1, {8.5, 7});
    campo("Cap", 1, 12, 2, {8.5, 7});
    campo("Citta", 13, 50, 2, {8.5, 7});
    campo("Provincia", 64, 9, 2, {8.5, 7});
    campo("Stato", 74, 23, 2, {8.5, 7});
    for (const Voce& voce : voci) {
        const double y = primaRiga + voce.riga * riga;
        blocco.controls.push_back(Etichetta(voce.etichetta, voce.didascalia,
                                            {voce.x, y, voce.larghezzaDidascalia, riga},
                                            {7.5, 0, false, Align::left, grigioDidascalia}));
        blocco.controls.push_back(Campo(std::string(voce.nome), voce.colonna,
                                        {voce.x + voce.larghezzaDidascalia, y, voce.larghezza, riga}, {8.5, 7}));
    }
    const double altezza = 2 * primaRiga + 4 * riga;
    blocco.controls.push_back(Filo(0, altezza, larghezzaElenco, 0, grigioRiga));
    blocco.height = mm(altezza);

    MettiPiede(report["Section3"]);
    return report;
}

}  // namespace bravona
