#include <gtest/gtest.h>

#include "platform/values/Errore.h"
#include "support/ArchivioTemporaneo.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

using Righe = std::vector<std::string>;

class InsiemeDiRecord : public ::testing::Test {
protected:
    std::string aggiungi(std::string_view nome)
    {
        Recordset rs = archivio.cn.openTable("Clienti");
        rs.addNew();
        rs["Cliente"] = nome;
        rs.update();
        return rs["IDCliente"].text();
    }
    ArchivioTemporaneo archivio;
};

TEST_F(InsiemeDiRecord, UnaRigaAggiuntaMostraIlContatoreEIValoriConsueti)
{
    Recordset rs = archivio.cn.openTable("Articoli");
    rs.addNew();
    rs["codicemagazzino"] = "A1";
    rs["COSTOMEDIO"] = "€ 1.234,50";
    rs["DataPrimoCarico"] = "29/02/2004";
    rs["QuantitaMinima"] = "2,5";
    EXPECT_TRUE(rs["IDArticolo"].isNull());
    rs.update();
    EXPECT_EQ(rs["IDArticolo"].asLong(), 1);
    EXPECT_EQ(archivio.righe("SELECT IDArticolo, CostoMedio, DataPrimoCarico, QuantitaMinima, Carico, UnitaMisura, "
                             "IDCodiceIva, DataUltimoCarico FROM Articoli"),
              Righe{"1|1234.5000|29/02/2004|2.5|0|Null|0|Null"});
}

TEST_F(InsiemeDiRecord, IContatoriNonSiRipetono)
{
    EXPECT_EQ(aggiungi("uno"), "1");
    archivio.cn.execute("INSERT INTO Clienti (IDCliente, Cliente) VALUES (10, 'dieci')");
    EXPECT_EQ(aggiungi("undici"), "11");
    archivio.cn.execute("DELETE * FROM Clienti WHERE IDCliente > 1");
    EXPECT_EQ(aggiungi("dodici"), "12");
}

TEST_F(InsiemeDiRecord, DopoLaChiaveMenoUnoVieneUno)
{
    Recordset rs = archivio.cn.openTable("Clienti");
    rs.addNew();
    rs["IDCliente"] = -1;
    rs["IDpagamento"] = -1;
    rs.update();
    EXPECT_EQ(rs["IDCliente"].asLong(), -1);
    EXPECT_EQ(aggiungi("uno"), "1");
    rs = archivio.cn.openTable("Fatture");
    rs.addNew();
    rs["IDFattura"] = -1;
    rs.update();
    rs.addNew();
    rs.update();
    EXPECT_EQ(rs["IDFattura"].asLong(), 1);
}

TEST_F(InsiemeDiRecord, LaTabellaSiLeggeInOrdineDiChiaveAncheDopoUnAggiunta)
{
    archivio.cn.execute("INSERT INTO Clienti (IDCliente, Cliente) VALUES (5, 'cinque')");
    archivio.cn.execute("INSERT INTO Clienti (IDCliente, Cliente) VALUES (2, 'due')");
    Recordset rs = archivio.cn.openTable("Clienti");
    rs.addNew();
    rs["Cliente"] = "sei";
    rs.update();
    EXPECT_EQ(rs.recordCount(), 3U);
    EXPECT_EQ(rs["Cliente"].text(), "sei") << "the row just added stays current";
    EXPECT_EQ(rs.position(), 2U);
    rs.moveFirst();
    EXPECT_EQ(rs["IDCliente"].asLong(), 2);
}

TEST_F(InsiemeDiRecord, UnaRigaNonInviataSopravviveAllaLettura)
{
    aggiungi("uno");
    Recordset rs = archivio.cn.openTable("Clienti");
    rs.addNew();
    rs["Cliente"] = "due";
    EXPECT_EQ(rs.recordCount(), 2U);
    EXPECT_EQ(rs["Cliente"].text(), "due");
    rs.update();
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Clienti"), "2");
}

TEST_F(InsiemeDiRecord, UnaTabellaSenzaChiaveSiAggiorna)
{
    Recordset rs = archivio.cn.open("SELECT TOP 1 Versione, DataAggiornamento FROM VersioneDB;", OpenMode::updatable);
    rs["Versione"] = 0;
    rs["DataAggiornamento"] = *Date::fromYmd(2004, 1, 15);
    rs.update();
    EXPECT_EQ(archivio.righe("SELECT * FROM VersioneDB"), Righe{"0|15/01/2004"});
    rs = archivio.cn.openTable("DatiAzienda");
    rs[0] = "Ditta";
    rs[8] = "01234567890";
    rs.update();
    EXPECT_EQ(archivio.valore("SELECT PartitaIva FROM DatiAzienda"), "01234567890");
}

TEST_F(InsiemeDiRecord, MuoversiInviaCioCheEraInSospeso)
{
    Recordset rs = archivio.cn.open("SELECT Descrizione,CodiceRegistro FROM TabellaRegistri ORDER BY CodiceRegistro",
                                    OpenMode::updatable);
    rs["Descrizione"] = "Primo";
    rs.moveNext();
    EXPECT_FALSE(rs.isEdited());
    EXPECT_EQ(archivio.valore("SELECT Descrizione FROM TabellaRegistri WHERE CodiceRegistro = 1"), "Primo");
}

TEST_F(InsiemeDiRecord, RinunciareRidaIlValoreDiPrima)
{
    aggiungi("uno");
    Recordset rs = archivio.cn.open("SELECT * FROM Clienti", OpenMode::updatable);
    rs["Cliente"] = "altro";
    rs.cancelUpdate();
    EXPECT_EQ(rs["Cliente"].text(), "uno");
    rs.addNew();
    EXPECT_EQ(rs.recordCount(), 2U);
    rs.cancelUpdate();
    EXPECT_EQ(rs.recordCount(), 1U);
    EXPECT_EQ(rs["Cliente"].text(), "uno");
}

TEST_F(InsiemeDiRecord, EliminareRendeCorrenteLaSeguente)
{
    aggiungi("a");
    aggiungi("b");
    aggiungi("c");
    Recordset rs = archivio.cn.open("SELECT * FROM Clienti ORDER BY Cliente", OpenMode::updatable);
    rs.moveTo(1);
    rs.remove();
    EXPECT_EQ(rs["Cliente"].text(), "c");
    rs.remove();
    EXPECT_TRUE(rs.eof());
    EXPECT_EQ(archivio.righe("SELECT Cliente FROM Clienti"), Righe{"a"});
}

TEST_F(InsiemeDiRecord, UnRifiutoLasciaLaRigaDaCorreggere)
{
    aggiungi("Rossi");
    Recordset rs = archivio.cn.openTable("Clienti");
    rs.addNew();
    rs["Cliente"] = "ROSSI";
    EXPECT_EQ(numeroDelFallimento([&] { return rs.update(), 0; }), 3022U);
    EXPECT_TRUE(rs.isEdited());
    rs["Cliente"] = "Bianchi";
    rs.update();
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM Clienti"), "2");
}

TEST_F(InsiemeDiRecord, IlGruppoArrivaTuttoONiente)
{
    Recordset rs = archivio.cn.open("SELECT * FROM ModalitaPagamento ORDER BY ModalitaPagamento", OpenMode::batch);
    rs.addNew();
    rs["ModalitaPagamento"] = "Contanti";
    rs["GG-1"] = 0;
    rs.update();
    rs.addNew();
    rs["ModalitaPagamento"] = "Bonifico";
    rs.update();
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM ModalitaPagamento"), "0");
    int scritture = 0;
    archivio.cn.setWriteHook([&](const std::string& tabella) {
        EXPECT_EQ(tabella, "ModalitaPagamento");
        if (++scritture == 2) {
            throw Errore(3035, "guasto di prova");
        }
    });
    EXPECT_EQ(numeroDelFallimento([&] { return rs.updateBatch(), 0; }), 3035U);
    EXPECT_EQ(archivio.valore("SELECT COUNT(*) FROM ModalitaPagamento"), "0");
    archivio.cn.setWriteHook({});
    rs.updateBatch();
    EXPECT_EQ(archivio.righe("SELECT * FROM ModalitaPagamento"),
              (Righe{"1|Contanti|0|Null|Null|Null|Null|Null|Null", "2|Bonifico|Null|Null|Null|Null|Null|Null|Null"}));
    EXPECT_EQ(rs["IDmodalitaPagamento"].asLong(), 2) << "the counter can be read back";
    rs["DF-FM"] = "FM";
    rs.update();
    rs.movePrevious();
    rs.remove();
    rs.updateBatch();
    EXPECT_EQ(archivio.righe("SELECT ModalitaPagamento, [DF-FM] FROM ModalitaPagamento"), Righe{"Bonifico|FM"});
}

struct Conversione {
    std::string_view campo;
    Value scritto;
    std::string letto;      // empty: refused
    std::uint32_t rifiuto;  // its number
};

TEST_F(InsiemeDiRecord, ICampiLeggonoITestiAllItaliana)
{
    const Conversione casi[] = {
        {"CostoMedio", "€ 1.234,50", "1234.5000", 0},
        {"CostoMedio", "-€ 0,00005", "0.0000", 0},
        {"CostoMedio", 0.00015, "0.0002", 0},
        {"CostoMedio", "", "Null", 0},
        {"CostoMedio", "abc", "", 13},
        {"CostoMedio", "922337203685477,5808", "", 6},
        {"Carico", "1.234,5", "1234.5", 0},
        {"Carico", "", "Null", 0},
        {"Carico", "12x", "", 13},
        {"IDCodiceIva", "3,5", "4", 0},
        {"IDCodiceIva", "2,5", "2", 0},
        {"IDCodiceIva", "3000000000", "", 6},
        {"DataPrimoCarico", "1/2/2004", "01/02/2004", 0},
        {"DataPrimoCarico", "", "Null", 0},
        {"DataPrimoCarico", "30/02/2004", "", 13},
        {"UnitaMisura", "", "", 0},
        {"UnitaMisura", 2.5, "2,5", 0},
    };
    for (const Conversione& caso : casi) {
        SCOPED_TRACE(std::string(caso.campo) + " = " + caso.scritto.text());
        Recordset rs = archivio.cn.openTable("Articoli");
        rs.addNew();
        EXPECT_EQ(numeroDelFallimento([&] { return rs[caso.campo].set(caso.scritto), 0; }), caso.rifiuto);
        if (caso.rifiuto == 0) {
            rs.update();
            EXPECT_EQ(
                archivio.valore("SELECT TOP 1 " + std::string(caso.campo) + " FROM Articoli ORDER BY IDArticolo DESC"),
                caso.letto);
        }
    }
}

TEST_F(InsiemeDiRecord, IFallimentiHannoILoroNumeri)
{
    Recordset rs = archivio.cn.open("SELECT * FROM Clienti", OpenMode::updatable);
    EXPECT_EQ(numeroDelFallimento([&] { return rs["Cliente"].text(); }), 3021U);
    EXPECT_EQ(numeroDelFallimento([&] { return rs["Cliente"].set("x"), 0; }), 3021U);
    EXPECT_EQ(numeroDelFallimento([&] { return rs.update(), 0; }), 3021U);
    EXPECT_EQ(numeroDelFallimento([&] { return rs.moveNext(), 0; }), 3021U);
    EXPECT_EQ(numeroDelFallimento([&] { return rs["Ignoto"].text(); }), 3265U);
    EXPECT_EQ(numeroDelFallimento([&] { return rs[99].text(); }), 9U);
    Recordset fisso = archivio.cn.open("SELECT * FROM VersioneDB");
    EXPECT_EQ(numeroDelFallimento([&] { return fisso["Versione"].set(1), 0; }), 3027U);
    fisso.close();
    EXPECT_EQ(numeroDelFallimento([&] { return fisso.recordCount(); }), 3704U);
    EXPECT_EQ(numeroDelFallimento([&] { return archivio.cn.openTable("Ignota"); }), 3078U);
    Recordset vecchio = archivio.cn.openTable("Clienti");
    archivio.cn.close();
    EXPECT_EQ(numeroDelFallimento([&] { return vecchio.recordCount(); }), 3420U);
}

TEST_F(InsiemeDiRecord, INomiDoppiDiUnGiuntoTornanoQualificati)
{
    aggiungi("Rossi");
    archivio.cn.execute(
        "INSERT INTO DestinazioneMerceClienti (IDCliente, Destinazione, Citta) VALUES (1, 'Sede', 'Asti')");
    Recordset rs = archivio.cn.open("SELECT Clienti.Cliente, Clienti.Citta, DestinazioneMerceClienti.Destinazione, "
                                    "DestinazioneMerceClienti.CITTA FROM Clienti INNER JOIN DestinazioneMerceClienti "
                                    "ON Clienti.IDCliente = DestinazioneMerceClienti.IDCliente");
    EXPECT_EQ(rs.columns()[0].name, "Cliente");
    EXPECT_EQ(rs.columns()[1].name, "Clienti.Citta");
    EXPECT_EQ(rs["DestinazioneMerceClienti.Citta"].text(), "Asti");
    EXPECT_TRUE(rs["Clienti.Citta"].isNull());
    EXPECT_EQ(numeroDelFallimento([&] { return rs["Citta"].text(); }), 3265U);
}

TEST_F(InsiemeDiRecord, UnSetGerarchicoDaIFigliDiOgniPadre)
{
    for (const std::string numero : {"1", "2", "3"}) {
        archivio.cn.execute("INSERT INTO Fatture (IDFattura, NumeroDocumento, AnnoDocumento) VALUES (" + numero + ", " +
                            numero + ", 2004)");
    }
    for (const std::string documento : {"3", "1", "3", "-1"}) {
        archivio.cn.execute("INSERT INTO Scadenzario (IDDocumento, avere) VALUES (" + documento + ", '1,5')");
    }
    Recordset rs = archivio.cn.open(
        "SHAPE {SELECT IDfattura, NumeroDocumento FROM Fatture WHERE AnnoDocumento= 2004 ORDER BY NumeroDocumento } AS "
        "ParentCMD APPEND ({SELECT * From Scadenzario } AS ChildCMD RELATE IDfattura TO IDDocumento) AS ChildCMD");
    Righe trovate;
    for (; !rs.eof(); rs.moveNext()) {
        Recordset& figli = rs.chapter("childcmd");
        std::string riga = rs["NumeroDocumento"].text() + ":";
        for (; !figli.eof(); figli.moveNext()) {
            riga += " " + figli["ID"].text();
        }
        trovate.push_back(riga);
    }
    EXPECT_EQ(trovate, (Righe{"1: 2", "2:", "3: 1 3"}));
}

TEST_F(InsiemeDiRecord, UnTestoDiFormaSbagliatoDiceDove)
{
    try {
        archivio.cn.open("SHAPE {SELECT IDfattura FROM Fatture} APPEND {SELECT * FROM Scadenzario}");
        FAIL();
    } catch (const Errore& e) {
        EXPECT_EQ(e.numero(), 3450U);
        EXPECT_NE(e.descrizione().find("carattere 46"), std::string::npos) << e.descrizione();
    }
}

TEST(FormaDichiarata, UnaRelazioneSuUnaColonnaCheNonCeFallisce)
{
    for (const DeclaredChapter& figli :
         {DeclaredChapter{"Child", "B", "A", {{{"A"}}, {}}}, DeclaredChapter{"Child", "A", "B", {{{"A"}}, {}}}}) {
        try {
            Recordset::declare(DeclaredSet{{{"A"}}, {figli}});
            FAIL();
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero(), 3450U);
        }
    }
}

TEST(FormaDichiarata, IFigliRestanoColLoroPadreEITestiSonoTagliati)
{
    Recordset rs =
        Recordset::declare(DeclaredSet{{{"IDdb", 10}, {"NumeroDoc", 5}, {"Clienti.Indirizzo"}},
                                       {{"Child", "IDdb", "IDdb", {{{"IDdb", 10}, {"CodiceArticolo"}}, {}}}}});
    EXPECT_TRUE(rs.eof());
    for (const std::string pagina : {"1", "2"}) {
        rs.addNew();
        rs["IDdb"] = pagina;
        rs["NumeroDoc"] = "èèèèèèèè";
        rs["Clienti.Indirizzo"] = "Via Po " + pagina;
        Recordset& righe = rs.chapter("Child");
        for (int i = 0; i < 3; ++i) {
            righe.addNew();
            righe["CodiceArticolo"] = "A" + pagina + std::to_string(i);
        }
        rs.update();
    }
    rs.moveFirst();
    EXPECT_EQ(rs.recordCount(), 2U);
    EXPECT_EQ(rs["NumeroDoc"].text(), "èèèèè");
    EXPECT_EQ(rs["Clienti.Indirizzo"].text(), "Via Po 1");
    EXPECT_EQ(rs.columns().back().type, FieldType::chapter);
    rs.moveNext();
    Recordset& righe = rs.chapter("Child");
    righe.moveFirst();
    EXPECT_EQ(righe.recordCount(), 3U);
    EXPECT_EQ(righe["CodiceArticolo"].text(), "A20");
    EXPECT_EQ(righe["IDdb"].text(), "2") << "a child takes the column that relates it";
}

}  // namespace
}  // namespace bravona
