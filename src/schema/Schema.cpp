#include "schema/Schema.h"

#include <string>

#include "platform/store/Catalogue.h"
#include "platform/store/Functions.h"
#include "platform/store/Translator.h"
#include "schema/Tabelle.h"

namespace bravona {
namespace {

std::string dichiarazione(const Colonna& colonna)
{
    std::string sql = engineName(colonna.nome) + " " + std::string(declarationOf(colonna.tipo));
    switch (colonna.tipo) {
    case FieldType::counter:
        return sql + " PRIMARY KEY AUTOINCREMENT";
    case FieldType::text:
        return sql + " COLLATE " + collationName;
    case FieldType::date:
        return sql;
    default:
        return colonna.vuoto == Vuoto::nullo ? sql : sql + " DEFAULT 0";
    }
}

std::string creaTabella(const Tabella& tabella, const char* comando = "CREATE TABLE ")
{
    std::string sql = comando + engineName(tabella.nome) + " (";
    for (const Colonna& colonna : tabella.colonne) {
        sql += (sql.back() == '(' ? "" : ", ") + dichiarazione(colonna);
    }
    if (!tabella.chiave.empty()) {
        std::string chiave;
        for (const std::string_view nome : tabella.chiave) {
            chiave += (chiave.empty() ? "" : ", ") + engineName(nome);
        }
        sql += ", PRIMARY KEY (" + chiave + ")";
    }
    for (const std::string& vincolo : tabella.vincoli) {
        sql += ", " + vincolo;
    }
    return sql + ")";
}

}  // namespace

void creaSchema(Connection& cn)
{
    std::string sql = "BEGIN IMMEDIATE;";
    for (const Tabella& tabella : tabelleArchivio()) {
        sql += creaTabella(tabella) + ";";
        int numero = 0;
        for (const std::string& colonne : tabella.indici) {
            sql += "CREATE INDEX " + engineName(std::string(tabella.nome) + "_" + std::to_string(++numero)) + " ON " +
                   engineName(tabella.nome) + " (" + colonne + ");";
        }
    }
    // Rules speak of other tables, so they follow all of them.
    for (const Tabella& tabella : tabelleArchivio()) {
        for (const std::string& regola : tabella.regole) {
            sql += regola + ";";
        }
    }
    sql += "INSERT INTO sqlite_sequence (name, seq) VALUES ('Proforma', " + std::to_string(primaChiavePreventivi - 1) +
           ");";
    try {
        cn.executeNative(sql + "COMMIT");
    } catch (const Errore&) {
        try {
            cn.executeNative("ROLLBACK");
        } catch (const Errore&) {
            // The first failure is the one to tell.
        }
        throw;
    }
}

void completaSchema(Connection& cn)
{
    for (const Tabella& tabella : tabelleArchivio()) {
        if (tabella.nome == "ScarichiDovuti")
            cn.executeNative(creaTabella(tabella, "CREATE TABLE IF NOT EXISTS "));
    }
    cn.countAbove("Proforma", primaChiavePreventivi - 1);
}

void semiMinimi(Connection& cn)
{
    constexpr int listini = 10;
    Transaction tutto(cn);
    cn.execute("INSERT INTO VersioneDB (Versione) VALUES (3)");
    cn.execute("INSERT INTO DatiAzienda (TipoStampa) VALUES ('D')");
    for (int i = 1; i <= listini; ++i) {
        const std::string numero = std::to_string(i);
        cn.execute("INSERT INTO DescrizioneListini (IDListino, Descrizione) VALUES (" + numero + ", 'Listino " +
                   numero + "')");
    }
    cn.execute("INSERT INTO TabellaRegistri (CodiceRegistro, Descrizione) VALUES (1, 'Principale')");
    cn.execute("INSERT INTO TabellaRegistri (CodiceRegistro, Descrizione) VALUES (2, 'Secondo')");
    cn.execute("INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, AliquotaIva, Descrizione) VALUES (1, 'E', 0, "
               "'Esente')");
    tutto.commit();
}

}  // namespace bravona
