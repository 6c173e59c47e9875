#include "Anagrafiche.h"

#include <algorithm>
#include <set>

#include "Nomi.h"

namespace bravona {

namespace {

constexpr int numeroListini = 10;

template <class Condizione>
const IvaPopolata::Voce* cerca(const std::vector<IvaPopolata::Voce>& voci, Condizione condizione)
{
    const auto voce = std::ranges::find_if(voci, condizione);
    return voce == voci.end() ? nullptr : &*voce;
}

void popolaPagamenti(Connection& cn, Anagrafiche& anagrafiche)
{
    struct Metodo {
        const char* nome;
        std::vector<int> giorni;
        bool fineMese;
    };
    const std::vector<Metodo> metodi{{"Contanti alla consegna", {0}, false},
                                     {"Ricevuta bancaria 30 gg. f.m.", {30}, true},
                                     {"Ricevuta bancaria 30/60 gg. f.m.", {30, 60}, true},
                                     {"Bonifico 30/60/90 gg. d.f.", {30, 60, 90}, false},
                                     {"Rimessa diretta in quattro rate", {30, 60, 90, 120}, true},
                                     {"Cambiali a 30/60/90/120/150 gg.", {30, 60, 90, 120, 150}, false},
                                     {"Sei rate mensili f.m.", {30, 60, 90, 120, 150, 180}, true},
                                     {"Bonifico vista fattura", {0}, true}};
    Recordset tabella = cn.openTable("ModalitaPagamento");
    for (const Metodo& metodo : metodi) {
        tabella.addNew();
        tabella["ModalitaPagamento"] = metodo.nome;
        for (std::size_t i = 0; i < metodo.giorni.size(); ++i)
            tabella["GG-" + std::to_string(i + 1)] = metodo.giorni[i];
        tabella["DF-FM"] = metodo.fineMese ? "FM" : "DF";
        tabella.update();
        anagrafiche.pagamenti.push_back(
            {tabella["IDmodalitaPagamento"].asLong(), metodo.nome, metodo.giorni, metodo.fineMese});
    }
}

// A name that no other party has: the town, then a number, tell two of the same name apart.
std::string nomeUnico(Caso& caso, std::set<std::string>& usati, const Comune& luogo)
{
    const std::string nome = nomeDitta(caso);
    std::string unico = nome;
    for (int volta = 1; !usati.insert(unico).second; ++volta) {
        unico = nome + " di " + luogo.nome + (volta > 1 ? " " + std::to_string(volta) : std::string());
    }
    return unico;
}

std::int32_t scriviSoggetto(Recordset& tabella, Caso& caso, std::set<std::string>& usati,
                            const ClientePopolato* cliente)
{
    const Comune& luogo = comune(caso);
    tabella.addNew();
    tabella["Cliente"] = nomeUnico(caso, usati, luogo);
    if (caso.unoSu(5))
        tabella["ClienteSecondaRiga"] = "c.a. Ufficio Amministrazione";
    tabella["Indirizzo"] = via(caso);
    tabella["Citta"] = luogo.nome;
    tabella["Provincia"] = luogo.provincia;
    tabella["Cap"] = luogo.cap;
    tabella["Telefono"] = telefono(caso);
    if (caso.unoSu(2))
        tabella["Fax"] = telefono(caso);
    if (!caso.unoSu(12))
        tabella["PartitaIva"] = partitaIva(caso);
    tabella["Banca"] = "Cassa di Risparmio di " + std::string(luogo.nome);
    if (cliente != nullptr) {
        tabella["IDpagamento"] = cliente->pagamento;
        tabella["IDListino"] = cliente->listino;
        tabella["ScontoMaggiorazione1"] = cliente->sconti[0];
        tabella["ScontoMaggiorazione2"] = cliente->sconti[1];
        tabella["EsenteIva"] = cliente->esente;
        if (cliente->esente) {
            tabella["DescrizioneEsenzioneIVA"] = "Esente I.V.A. ART. 8/C D.P.R. 633/72";
            tabella["EstremiEsenzioneIVA"] =
                "Prot. n. " + std::to_string(caso.fra(1, 900)) + "/" + std::to_string(2024);
        }
        if (caso.unoSu(8)) {
            tabella["NoteGeneriche"] = "Consegnare solo di mattina. È richiesta la firma del responsabile.";
            tabella["VisualizzaNoteSuDocumenti"] = true;
        }
    }
    // A few old customers have no kind at all.
    if (cliente == nullptr)
        tabella["Tipo"] = "F";
    else if (!caso.unoSu(40))
        tabella["Tipo"] = "C";
    tabella.update();
    return tabella["IDCliente"].asLong();
}

void popolaSoggetti(Connection& cn, Anagrafiche& anagrafiche, Caso& caso, int clienti, int fornitori)
{
    std::set<std::string> usati;
    Recordset tabella = cn.openTable("Clienti");
    Recordset destinazioni = cn.openTable("DestinazioneMerceClienti");
    for (int i = 1; i <= clienti; ++i) {
        ClientePopolato cliente;
        cliente.pagamento = anagrafiche.pagamenti[caso.sotto(anagrafiche.pagamenti.size())].id;
        cliente.listino = caso.unoSu(3) ? caso.fra(1, numeroListini) : 1;
        if (caso.unoSu(3))
            cliente.sconti = {caso.fra(1, 6) * 5, caso.unoSu(2) ? 5 : 0, 0};
        cliente.esente = caso.unoSu(15);
        if (cliente.esente)
            cliente.noteEsenzione = "Esente I.V.A. ART. 8/C D.P.R. 633/72";
        cliente.id = scriviSoggetto(tabella, caso, usati, &cliente);
        if (caso.unoSu(6)) {
            const Comune& luogo = comune(caso);
            destinazioni.addNew();
            destinazioni["IDCliente"] = cliente.id;
            destinazioni["Destinazione"] = "Magazzino " + std::string(luogo.nome);
            destinazioni["Indirizzo"] = via(caso);
            destinazioni["Citta"] = luogo.nome;
            destinazioni["Provincia"] = luogo.provincia;
            destinazioni["Cap"] = luogo.cap;
            destinazioni.update();
            cliente.destinazioni.push_back(destinazioni["IDDestinazione"].asLong());
        }
        anagrafiche.clienti.push_back(std::move(cliente));
    }
    for (int i = 1; i <= fornitori; ++i) {
        anagrafiche.fornitori.push_back(scriviSoggetto(tabella, caso, usati, nullptr));
    }
}

void popolaArticoli(Connection& cn, const IvaPopolata& iva, Anagrafiche& anagrafiche, Caso& caso, int articoli)
{
    constexpr std::array<const char*, 4> unita{"Pz", "Nr", "Mt", "Kg"};
    constexpr std::int64_t unitaPerCentesimo = 100;
    std::vector<std::int32_t> imponibili;
    for (const IvaPopolata::Voce& voce : iva.voci) {
        if (voce.aliquota > 0)
            imponibili.push_back(voce.id);
    }
    const std::int32_t ordinaria =
        std::ranges::max_element(iva.voci, {}, [](const IvaPopolata::Voce& voce) { return voce.aliquota; })->id;
    Recordset tabella = cn.openTable("Articoli");
    Recordset prezzi = cn.openTable("ListiniPrezzi");
    for (int i = 1; i <= articoli; ++i) {
        ArticoloPopolato articolo;
        articolo.codice = codiceArticolo(caso, i);
        articolo.descrizione = descrizioneArticolo(caso, i);
        articolo.unita = unita[caso.sotto(unita.size())];
        articolo.idIva = caso.unoSu(5) ? imponibili[caso.sotto(imponibili.size())] : ordinaria;
        articolo.prezzo = caso.fra(20, 25'000);
        tabella.addNew();
        tabella["CodiceMagazzino"] = articolo.codice;
        tabella["CodiceFornitore"] = "F" + std::to_string(caso.fra(10'000, 99'999));
        tabella["CodiceBarreFornitore"] = "80" + std::to_string(caso.fra(10'000, 99'999)) + std::to_string(10'000 + i);
        tabella["DescrizionePrincipale"] = articolo.descrizione;
        tabella["UnitaMisura"] = articolo.unita;
        tabella["IDCodiceIva"] = articolo.idIva;
        tabella["QuantitaMinima"] = caso.fra(0, 20);
        tabella.update();
        articolo.id = tabella["IDArticolo"].asLong();
        for (int listino = 1; listino <= numeroListini; ++listino) {
            prezzi.addNew();
            prezzi["IDArticolo"] = articolo.id;
            prezzi["IDListino"] = listino;
            const std::int64_t centesimi = articolo.prezzo * (100 + listino - 1) / 100;
            prezzi["Prezzo"] = Currency::fromTenThousandths(centesimi * unitaPerCentesimo);
            prezzi.update();
        }
        anagrafiche.articoli.push_back(std::move(articolo));
    }
}

}  // namespace

IvaPopolata::IvaPopolata(Connection& cn)
{
    Recordset tabella = cn.open("SELECT * FROM TabellaCodiciIva ORDER BY IDCodiceIva");
    for (; !tabella.eof(); tabella.moveNext()) {
        voci.push_back({tabella["IDCodiceIva"].asLong(), tabella["CodiceIva"].text(), tabella["Descrizione"].text(),
                        static_cast<std::int16_t>(tabella["AliquotaIva"].asCurrency().toDouble())});
    }
}

const IvaPopolata::Voce* IvaPopolata::perId(std::int32_t id) const
{
    return cerca(voci, [id](const Voce& voce) { return voce.id == id; });
}

const IvaPopolata::Voce* IvaPopolata::perCodice(const std::string& codice) const
{
    return cerca(voci, [&codice](const Voce& voce) { return voce.codice == codice; });
}

std::string IvaPopolata::GetCodiceAliquotaIvaFromID(std::int32_t id) const
{
    const Voce* voce = perId(id);
    return voce == nullptr ? std::string() : voce->codice;
}

std::string IvaPopolata::GetDescrizioneAliquotaIvaFromID(std::int32_t id) const
{
    const Voce* voce = perId(id);
    return voce == nullptr ? std::string() : voce->descrizione;
}

std::int16_t IvaPopolata::GetValoreAliquotaIvaFromID(std::int32_t id) const
{
    const Voce* voce = perId(id);
    return voce == nullptr ? std::int16_t{0} : voce->aliquota;
}

std::int32_t IvaPopolata::GetIDAliquotaIvaFromCodice(const std::string& codice) const
{
    const Voce* voce = perCodice(codice);
    return voce == nullptr ? 0 : voce->id;
}

std::string IvaPopolata::GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const
{
    const Voce* voce = perCodice(codice);
    return voce == nullptr ? std::string() : voce->descrizione;
}

std::int16_t IvaPopolata::GetValoreAliquotaIvaFromCodice(const std::string& codice) const
{
    const Voce* voce = perCodice(codice);
    return voce == nullptr ? std::int16_t{0} : voce->aliquota;
}

Anagrafiche popolaAnagrafiche(Connection& cn, const IvaPopolata& iva, Caso& caso, int documenti)
{
    Anagrafiche anagrafiche;
    const int clienti = std::clamp(documenti / 20, 12, 4'000);
    const int articoli = std::clamp(documenti / 10, 20, 8'000);
    popolaPagamenti(cn, anagrafiche);
    popolaSoggetti(cn, anagrafiche, caso, clienti, std::max(3, clienti / 8));
    popolaArticoli(cn, iva, anagrafiche, caso, articoli);
    return anagrafiche;
}

}  // namespace bravona
