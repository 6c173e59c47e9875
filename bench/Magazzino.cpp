#include "Magazzino.h"

#include "platform/store/ConnectionImpl.h"

namespace bravona {

void aggiungiArticoli(Sessione& sessione, int quanti, int ogni)
{
    Transaction tutti(sessione.cn);
    Recordset articoli = sessione.cn.openTable("Articoli");
    Recordset prezzi = sessione.cn.openTable("ListiniPrezzi");
    for (int i = 0; i < quanti; ++i) {
        const std::string numero = std::to_string(i);
        articoli.addNew();
        articoli["IDArticolo"] = primoArticolo + i;
        articoli["CodiceMagazzino"] = (i % ogni == 0 ? "RARO-" : "ART-") + numero;
        articoli["CodiceFornitore"] = "F" + numero;
        articoli["CodiceBarreFornitore"] = "80000" + numero;
        articoli["DescrizionePrincipale"] = "Vite zincata a testa svasata n. " + numero;
        articoli["DescrizioneSecondaria1"] = "confezione da 200";
        articoli["UnitaMisura"] = "Pz";
        articoli["IDCodiceIva"] = 1;
        articoli.update();
        prezzi.addNew();
        prezzi["IDArticolo"] = primoArticolo + i;
        prezzi["IDListino"] = 2;
        prezzi["Prezzo"] = Currency::fromTenThousandths(10'000 + i);
        prezzi.update();
    }
    tutti.commit();
}

std::vector<std::vector<std::string>> nuda(Connection& cn, const std::string& istruzione)
{
    Connection::Impl& impl = cn.impl();
    PreparedStatement& pronta = impl.prepare(istruzione, {});
    const Running in_corso(pronta.engine);
    impl.binder.bind(pronta.engine, pronta.translation, impl.tokens);
    sqlite3_stmt* s = pronta.engine.get();
    const int colonne = sqlite3_column_count(s);
    std::vector<std::vector<std::string>> righe;
    while (pronta.engine.step()) {
        std::vector<std::string>& riga = righe.emplace_back();
        riga.reserve(static_cast<std::size_t>(colonne));
        for (int i = 0; i < colonne; ++i) {
            const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(s, i));
            riga.emplace_back(testo == nullptr ? "" : testo, static_cast<std::size_t>(sqlite3_column_bytes(s, i)));
        }
    }
    return righe;
}

}  // namespace bravona
