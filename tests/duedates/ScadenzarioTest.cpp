#include <gtest/gtest.h>

#include "duedates/frmScadenze.h"
#include "support/ProgrammaDiProva.h"

namespace bravona {
namespace {

// Who sees no colours reads the sign; a line that is paid or put off loses both.
TEST(Ledger, SaysBesideTheColourOfALineWhetherItIsOverdue)
{
    ProgrammaDiProva prova;
    Sessione& sessione = prova.sessione();
    sessione.cn.execute(
        "INSERT INTO Fatture (IDFattura, NumeroDocumento, NumeroRegistro, TipoDocumento, AnnoDocumento, IDCliente) "
        "VALUES (1, 1, 1, 2, 2004, 7)");
    for (const char* scadenza : {"15/01/2004", "16/01/2004"}) {
        sessione.cn.execute("INSERT INTO Scadenzario (IDDocumento, Saldato, Scadenza, avere) VALUES (1, '0', #" +
                            std::string(scadenza) + "#, '1')");
    }
    prova.impostazioni.save("Impostazioni", "AllarmeGG", "1");
    prova.menu("mnuScadenzario");
    auto& scadenze = sessione.schermate().as<frmScadenze>("frmScadenze");
    FlexGrid& griglia = scadenze.GrigliaScadenze1.Griglia;
    ASSERT_EQ(griglia.rows(), 3);
    EXPECT_EQ(griglia.rowSign(1).meaning, "scaduta");
    EXPECT_EQ(griglia.rowSign(2).meaning, "in scadenza");
    EXPECT_NE(griglia.rowSign(1).sign, griglia.rowSign(2).sign);
    griglia.userClick(1, 0);
    EXPECT_TRUE(griglia.rowSign(1).sign.empty());
    EXPECT_FALSE(griglia.rowColour(1));
}

}  // namespace
}  // namespace bravona
