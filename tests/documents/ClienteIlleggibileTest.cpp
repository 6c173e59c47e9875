#include <gtest/gtest.h>

#include "support/ProgrammaDiProva.h"

namespace bravona {
namespace {

// His name without his terms would make an invoice of nothing.
TEST(CustomerOfADocument, OneWhoseTermsCannotBeReadIsNone)
{
    ProgrammaDiProva programma;
    programma.componiFattura(1);
    auto& schede = dynamic_cast<TabControl&>(programma.controllo("SSTabDocumento"));
    auto& nome = dynamic_cast<TextBox&>(programma.controllo("txtCliente[0]"));
    programma.utente.chooseTab(schede, 0);
    ASSERT_EQ(nome.text(), "Rossi");
    programma.sessione().cn.executeNative("DROP TABLE ModalitaPagamento");
    programma.utente.key(Key::f3);
    EXPECT_EQ(nome.text(), "");
    const std::size_t finestre = programma.utente.boxCount();
    programma.utente.click(programma.controllo("cmdDocumento[0]"));
    EXPECT_GT(programma.utente.boxCount(), finestre);
    EXPECT_EQ(programma.valore("SELECT NumeroDocumento FROM Fatture"), "");
}

}  // namespace
}  // namespace bravona
