#include <array>
#include <string>

#include "schema/Capoluoghi.h"
#include "schema/Schema.h"

namespace bravona {
namespace {

struct CodiceIva {
    std::string_view codice;  // letters; the first one tells the codes apart in the rows of a document
    int aliquota;             // percent
    std::string_view descrizione;
};
// A new article starts with the first one. The exempt customers' code is found by its letter.
constexpr std::array codiciIva = {
    CodiceIva{"O", 22, "Aliquota ordinaria 22%"},
    CodiceIva{"R", 10, "Aliquota ridotta 10%"},
    CodiceIva{"S", 5, "Aliquota ridotta 5%"},
    CodiceIva{"M", 4, "Aliquota minima 4%"},
    CodiceIva{"E", 0, "Esente art. 10 D.P.R. 633/72"},
    CodiceIva{"N", 0, "Non imponibile art. 8 D.P.R. 633/72"},
    CodiceIva{"F", 0, "Fuori campo IVA art. 15 D.P.R. 633/72"},
    CodiceIva{"I", 0, "Inversione contabile art. 17 D.P.R. 633/72"},
};

struct Pagamento {
    std::string_view nome;
    std::array<int, 6> giorni;  // 0 after the first: no further instalment
    std::string_view decorrenza;
};
constexpr std::array pagamenti = {
    Pagamento{"Contanti", {0}, "DF"},
    Pagamento{"Rimessa diretta", {0}, "DF"},
    Pagamento{"Contrassegno", {0}, "DF"},
    Pagamento{"Assegno bancario", {0}, "DF"},
    Pagamento{"Bancomat o carta di credito", {0}, "DF"},
    Pagamento{"Bonifico bancario anticipato", {0}, "DF"},
    Pagamento{"Bonifico bancario 30 gg. D.F.", {30}, "DF"},
    Pagamento{"Bonifico bancario 30 gg. F.M.", {30}, "FM"},
    Pagamento{"Bonifico bancario 60 gg. F.M.", {60}, "FM"},
    Pagamento{"Bonifico bancario 30/60 gg. F.M.", {30, 60}, "FM"},
    Pagamento{"Ric. Banc. 30 gg. D.F.", {30}, "DF"},
    Pagamento{"Ric. Banc. 30 gg. F.M.", {30}, "FM"},
    Pagamento{"Ric. Banc. 60 gg. F.M.", {60}, "FM"},
    Pagamento{"Ric. Banc. 90 gg. F.M.", {90}, "FM"},
    Pagamento{"Ric. Banc. 30/60 gg. F.M.", {30, 60}, "FM"},
    Pagamento{"Ric. Banc. 30/60/90 gg. F.M.", {30, 60, 90}, "FM"},
    Pagamento{"Ric. Banc. 60/90/120 gg. F.M.", {60, 90, 120}, "FM"},
    Pagamento{"Ric. Banc. 30/60/90/120/150/180 gg. F.M.", {30, 60, 90, 120, 150, 180}, "FM"},
};

void scriviCodiciIva(Connection& cn)
{
    Recordset rs = cn.openTable("TabellaCodiciIva");
    for (const CodiceIva& iva : codiciIva) {
        rs.addNew();
        rs["CodiceIva"] = iva.codice;
        rs["AliquotaIva"] = iva.aliquota;
        rs["Descrizione"] = iva.descrizione;
        rs.update();
    }
}

void scriviPagamenti(Connection& cn)
{
    Recordset rs = cn.openTable("ModalitaPagamento");
    for (const Pagamento& pagamento : pagamenti) {
        rs.addNew();
        rs["ModalitaPagamento"] = pagamento.nome;
        for (std::size_t i = 0; i < pagamento.giorni.size(); ++i) {
            if (i == 0 || pagamento.giorni.at(i) != 0) {
                rs["GG-" + std::to_string(i + 1)] = pagamento.giorni.at(i);
            }
        }
        rs["DF-FM"] = pagamento.decorrenza;
        rs.update();
    }
}

void scriviComuni(Connection& cn)
{
    Recordset rs = cn.openTable("Comuni");
    for (const Capoluogo& capoluogo : capoluoghi()) {
        rs.addNew();
        rs["Comune"] = capoluogo.comune;
        rs["Provincia"] = capoluogo.provincia;
        rs["Cap"] = capoluogo.cap;
        rs.update();
    }
}

void scriviNumerati(Connection& cn, std::string_view tabella, std::string_view chiave,
                    std::initializer_list<std::string_view> nomi)
{
    Recordset rs = cn.openTable(tabella);
    int numero = 0;
    for (const std::string_view nome : nomi) {
        rs.addNew();
        rs[chiave] = ++numero;
        rs["Descrizione"] = nome;
        rs.update();
    }
}

}  // namespace

void semiConsegna(Connection& cn)
{
    Transaction tutto(cn);
    cn.execute("INSERT INTO VersioneDB (Versione) VALUES (3)");
    cn.execute("INSERT INTO DatiAzienda (TipoStampa) VALUES ('D')");
    scriviNumerati(cn, "TabellaRegistri", "CodiceRegistro", {"Principale", "Secondo", "Terzo"});
    scriviNumerati(cn, "DescrizioneListini", "IDListino",
                   {"Listino al pubblico", "Listino rivenditori", "Listino grossisti", "Listino 4", "Listino 5",
                    "Listino 6", "Listino 7", "Listino 8", "Listino 9", "Listino 10"});
    scriviCodiciIva(cn);
    scriviPagamenti(cn);
    scriviComuni(cn);
    tutto.commit();
}

}  // namespace bravona
