#include "documents/AlberoPerMese.h"

#include <set>

#include "support/ConArchivio.h"

namespace bravona {
namespace {

constexpr const char* tutti = "SELECT IDCliente, Cliente FROM Clienti ORDER BY Cliente";

class ConAlbero : public ConArchivio {
protected:
    ConAlbero()
    {
        esegui("INSERT INTO Clienti (IDCliente, Cliente, Tipo) VALUES (7, 'Rossi', 'C')");
        esegui("INSERT INTO Clienti (IDCliente, Cliente, Tipo) VALUES (12, 'Bianchi', 'F')");
    }

    // Chooses by key; what the owner is told.
    static NodoPerMese scegli(AlberoPerMese& albero, const std::string& chiave)
    {
        std::optional<NodoPerMese> detto;
        albero.nodoScelto = [&](const NodoPerMese& nodo) { detto = nodo; };
        albero.tvwClienti.userSelect(albero.tvwClienti.find(chiave));
        EXPECT_EQ(detto, albero.scelto());
        return detto.value();
    }
    // Texts of the children, those in bold with a mark behind them.
    static std::string figli(const TreeView& vista, const std::string& chiave)
    {
        std::string testo;
        for (const int figlio : vista.nodes()[static_cast<std::size_t>(vista.find(chiave))].children) {
            const TreeNode& nodo = vista.nodes()[static_cast<std::size_t>(figlio)];
            testo += (testo.empty() ? "" : " ") + nodo.text + (nodo.bold ? "*" : "");
        }
        return testo;
    }
};

TEST_F(ConAlbero, ChoosingSaysWhoseDocumentsOfWhichMonth)
{
    AlberoPerMese albero(sessione.cn, {.radice = "Clienti", .etichetta = "Cliente: ", .soggetti = tutti});
    albero.carica();
    EXPECT_EQ(albero.scelto(), std::nullopt);
    EXPECT_EQ(figli(albero.tvwClienti, "ROOT"), "Bianchi Rossi");
    albero.mostraMesi(7, {});
    using enum NodoPerMese::Genere;
    const struct {
        const char* chiave;
        NodoPerMese nodo;
        const char* riga;
    } casi[] = {{"ROOT", {radice, 0, 0}, ""},
                {"c7", {soggetto, 7, 0}, "Cliente: Rossi - Mese: TUTTI"},
                {"m027", {mese, 7, 2}, "Cliente: Rossi - Mese: FEBBRAIO"},
                {"c12", {soggetto, 12, 0}, "Cliente: Bianchi - Mese: TUTTI"},
                {"ROOT", {radice, 0, 0}, "Cliente: Bianchi - Mese: TUTTI"}};
    for (const auto& caso : casi) {
        EXPECT_EQ(scegli(albero, caso.chiave), caso.nodo) << caso.chiave;
        EXPECT_EQ(albero.lblCliente.caption(), caso.riga) << caso.chiave;
    }
    // A month chosen by its key opens its party.
    EXPECT_TRUE(albero.tvwClienti.nodes()[static_cast<std::size_t>(albero.tvwClienti.find("c7"))].expanded);
    albero.carica();
    EXPECT_EQ(albero.scelto(), std::nullopt);
    EXPECT_EQ(albero.tvwClienti.find("m027"), -1);
}

TEST_F(ConAlbero, MonthsComeOnceAndFollowTheDocuments)
{
    AlberoPerMese albero(sessione.cn, {.radice = "Clienti", .etichetta = "Cliente: ", .soggetti = tutti});
    albero.carica();
    albero.mostraMesi(7, MesiConDocumenti().set(1).set(12).set(0));
    EXPECT_EQ(figli(albero.tvwClienti, "c7"), "Gennaio* Febbraio Marzo Aprile Maggio Giugno Luglio Agosto Settembre "
                                              "Ottobre Novembre Dicembre*");
    albero.mostraMesi(7, MesiConDocumenti().set(5));
    EXPECT_EQ(figli(albero.tvwClienti, "c7"), "Gennaio Febbraio Marzo Aprile Maggio* Giugno Luglio Agosto Settembre "
                                              "Ottobre Novembre Dicembre");

    AlberoPerMese fornitori(sessione.cn, {.radice = "Fornitori",
                                          .etichetta = "Fornitore: ",
                                          .soggetti = "SELECT IDCliente, Cliente,Tipo FROM Clienti WHERE Tipo = \"F\"  "
                                                      "ORDER BY Cliente",
                                          .tuttiIMesi = false});
    fornitori.carica();
    EXPECT_EQ(figli(fornitori.tvwClienti, "ROOT"), "Bianchi");
    fornitori.mostraMesi(12, MesiConDocumenti().set(0).set(3));
    fornitori.mostraMesi(12, MesiConDocumenti().set(3));
    EXPECT_EQ(figli(fornitori.tvwClienti, "c12"), "Senza data Marzo");
    EXPECT_EQ(scegli(fornitori, "m0012"), (NodoPerMese{NodoPerMese::Genere::mese, 12, 0}));
}

}  // namespace
}  // namespace bravona
