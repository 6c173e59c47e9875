#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

#include "platform/text/Text.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Letters.h"
#include "support/Percorsi.h"
#include "support/ProgrammaDiProva.h"

// Every screen of the registry, as its layout stands.

namespace bravona {
namespace {

std::string testoSopra(const Control& controllo)
{
    switch (controllo.kind()) {
    case ControlKind::button:
        return static_cast<const Button&>(controllo).caption();
    case ControlKind::checkBox:
        return static_cast<const CheckBox&>(controllo).caption();
    case ControlKind::optionButton:
        return static_cast<const OptionButton&>(controllo).caption();
    case ControlKind::label:
    case ControlKind::frame:
        return controllo.shownText();
    case ControlKind::tabControl: {
        std::string pagine;
        for (const TabControl::Page& pagina : static_cast<const TabControl&>(controllo).pages()) {
            pagine += (pagine.empty() ? "" : " | ") + pagina.caption;
        }
        return pagine;
    }
    default:
        return controllo.labelCaption();
    }
}

std::string descrivi(const Form& schermata)
{
    std::string testo = schermata.name() + "\n";
    for (const Control* controllo : schermata.tabOrder()) {
        testo += "  " + controllo->fullName();
        if (const std::string sopra = withoutMnemonic(testoSopra(*controllo)); !sopra.empty()) {
            testo += " \"" + sopra + "\"";
        }
        if (controllo->page() >= 0) {
            testo += " page " + std::to_string(controllo->page());
        }
        testo += "\n";
    }
    return testo;
}

TEST(EveryScreen, GivesNoTwoReachableThingsOneLetter)
{
    ProgrammaDiProva programma;
    int lettere = 0;
    int senza = 0;
    for (const std::string& nome : programma.utente.screens().names()) {
        SCOPED_TRACE(nome);
        const Letters letters(programma.utente.screens().get(nome));
        const auto& cose = letters.things();
        for (std::size_t i = 0; i < cose.size(); ++i) {
            const Letters::Thing& una = cose[i];
            if (std::getenv("BRAVONA_LETTERE") != nullptr) {
                std::cout << nome << ": " << Letters::marked(una.caption, una.letter) << "  <- " << una.caption << "\n";
            }
            if (una.letter == 0) {
                const bool comando =
                    una.what == Letters::Thing::What::page || una.control->kind() == ControlKind::button;
                EXPECT_FALSE(comando) << una.caption;
                ++senza;
                continue;
            }
            EXPECT_EQ(mnemonic(Letters::marked(una.caption, una.letter)), una.letter) << una.caption;
            EXPECT_EQ(withoutMnemonic(Letters::marked(una.caption, una.letter)), withoutMnemonic(una.caption));
            EXPECT_EQ(letters.ofMenuBar().find(una.letter), std::u32string::npos) << una.caption;
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(una.letter == cose[j].letter && Letters::together(una, cose[j]))
                    << una.caption << " and " << cose[j].caption;
            }
            ++lettere;
        }
    }
    EXPECT_GT(lettere, 100);
    EXPECT_LT(senza, lettere / 10);  // fields all of whose letters serve something else
}

// The captions beside fields and the order of Tab, as somebody looked them over once. After a change on purpose:
// BRAVONA_SCHERMATE=1 bravona_tests --gtest_filter=EveryScreen.*, and read the difference.
TEST(EveryScreen, KeepsItsCaptionsAndTheOrderOfTab)
{
    ProgrammaDiProva programma;
    std::string testo;
    for (const std::string& nome : programma.utente.screens().names()) {
        testo += descrivi(programma.utente.screens().get(nome));
    }
    const auto file = cartellaTest() / "program" / "schermate.txt";
    if (std::getenv("BRAVONA_SCHERMATE") != nullptr) {
        std::ofstream(file) << testo;
    }
    std::stringstream atteso;
    atteso << std::ifstream(file).rdbuf();
    std::istringstream righe(testo);
    std::string schermata;
    for (std::string trovata, voluta; std::getline(righe, trovata);) {
        schermata = trovata.front() == ' ' ? schermata : trovata;
        std::getline(atteso, voluta);
        ASSERT_EQ(trovata, voluta) << schermata;
    }
    EXPECT_EQ(testo, atteso.str());
}

}  // namespace
}  // namespace bravona
