#include "support/ProgrammaDiProva.h"

#include <array>
#include <map>
#include <stdexcept>

#include "documents/AperturaDocumento.h"
#include "schema/Schema.h"

namespace bravona {

namespace {

constexpr std::array<const char*, 8> dati{
    "INSERT INTO Archivi (AnnoArchivio) VALUES (2004)",
    "INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, AliquotaIva, Descrizione) VALUES (10, 'A', 20, 'Ordinaria')",
    "INSERT INTO ModalitaPagamento (IDmodalitaPagamento, ModalitaPagamento, [GG-1], [GG-2], [GG-3], [DF-FM]) VALUES "
    "(5, "
    "'Rimessa', 30, 60, 90, 'DF')",
    "INSERT INTO Clienti (IDCliente, Cliente, Indirizzo, Citta, PartitaIva, Tipo, IDpagamento, IDListino) VALUES (7, "
    "'Rossi', "
    "'Via Po 1', 'Torino', '01234567890', 'C', 5, 1)",
    "INSERT INTO Articoli (IDArticolo, CodiceMagazzino, DescrizionePrincipale, UnitaMisura, IDCodiceIva, Carico, "
    "Giacenza) "
    "VALUES (3, 'A1', 'Vite', 'Pz', 10, 1000, 1000)",
    "INSERT INTO Articoli (IDArticolo, CodiceMagazzino, DescrizionePrincipale, UnitaMisura, IDCodiceIva, Carico, "
    "Giacenza) "
    "VALUES (4, 'B1', 'Dado', 'Pz', 10, 1000, 1000)",
    "INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (3, 1, 100)",
    "INSERT INTO ListiniPrezzi (IDArticolo, IDListino, Prezzo) VALUES (4, 1, 10)"};

}  // namespace

ProgrammaDiProva::ProgrammaDiProva()
{
    std::filesystem::create_directories(cartella() / "Database");
    {
        Connection cn;
        cn.create(archivio().string(), passwordArchivio);
        creaSchema(cn);
        semiMinimi(cn);
        for (const char* statement : dati) {
            cn.execute(statement);
        }
    }
    impostazioni.save("Impostazioni", "PercorsoDB", archivio().string());
    impostazioni.save("Impostazioni", "Anno Riferimento", "2004");
    programma_ = std::make_unique<Programma>(Ambiente{utente, impostazioni, orologio, file, cartella().string()});
    programma_->avvia();
    if (utente.ended()) {
        throw std::runtime_error("the program did not start");
    }
}

ProgrammaDiProva::~ProgrammaDiProva()
{
    utente.screens().clear();
}

void ProgrammaDiProva::menu(const std::string& voce)
{
    Form& principale = *utente.mainWindow();
    Menu* entry = principale.menuBar->find(voce);
    if (entry == nullptr) {
        throw std::runtime_error("no menu entry " + voce);
    }
    utente.menu(principale, *entry);
}

Control& ProgrammaDiProva::controllo(const std::string& nome)
{
    Control* trovato = utente.front() != nullptr ? utente.front()->find(nome) : nullptr;
    if (trovato == nullptr) {
        throw std::runtime_error("no control " + nome + " in front");
    }
    return *trovato;
}

void ProgrammaDiProva::componiFattura(int righe)
{
    componi(tipo::fattura, righe);
}

void ProgrammaDiProva::componi(int tipoDocumento, int righe)
{
    // As the chooser lists them.
    static const std::map<int, const char*> opzioni{{tipo::fattura, "optTipoDocumento[0]"},
                                                    {tipo::ddt, "optTipoDocumento[2]"},
                                                    {tipo::proforma, "optTipoDocumento[3]"},
                                                    {tipo::notaCredito, "optTipoDocumento[4]"},
                                                    {tipo::notaDebito, "optTipoDocumento[5]"}};
    menu("mnuEmettiDocumento");
    utente.click(controllo(opzioni.at(tipoDocumento)));
    utente.key(Key::enter);
    utente.type("ros");
    utente.key(Key::f3);
    utente.chooseTab(dynamic_cast<TabControl&>(controllo("SSTabDocumento")), 1);
    for (int riga = 0; riga < righe; ++riga) {
        utente.focus(controllo("txtCodiceArticolo"));
        utente.type(riga % 2 == 0 ? "A1" : "B1");
        utente.key(Key::f3);
        utente.click(controllo("cmdDettagli[0]"));
    }
}

void ProgrammaDiProva::apri(std::int16_t tipoDocumento, std::int32_t numero)
{
    utente.guard([&] {
        Form& schermata = sessione().schermate().get(schermataDiModifica(tipoDocumento));
        dynamic_cast<ApreDocumento&>(schermata).ApriDocumento({tipoDocumento, numero, 1, 2004});
        schermata.show();
    });
}

std::string ProgrammaDiProva::valore(const std::string& statement)
{
    Recordset risultato = sessione().cn.open(statement);
    return risultato.eof() ? std::string() : risultato[0].text();
}

}  // namespace bravona
