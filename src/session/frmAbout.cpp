#include "session/frmAbout.h"

#include "platform/text/Text.h"

namespace bravona {

namespace {
constexpr const char* nomeProdotto = "Bravona";
constexpr std::size_t caratteriDelNome = 19;
}  // namespace

frmAbout::frmAbout(Sessione& sessione)
    : Form(sessione.desktop(), "frmAbout", "Informazioni su Bravona", WindowStyle::dialog)
{
    picIcona.boxWidth = 128;
    picIcona.boxHeight = 128;
    picIcona.load("bravona");
    lbl2000.setCaption(right(nomeProdotto, caratteriDelNome));
    lbl2000.style = TextStyle::grand;
    lblProgramVersion.setCaption("Versione " + std::to_string(versioneProgramma.maggiore) + "." +
                                 std::to_string(versioneProgramma.minore) + " rev." +
                                 std::to_string(versioneProgramma.revisione));
    lblDescrizione.style = TextStyle::hint;
    cmdChiudi.onClick = [this] { unload(); };
    for (Label* etichetta : {&lbl2000, &lblProgramVersion, &lblDescrizione}) {
        etichetta->onClick = [this] { unload(); };
    }

    add("picIcona", picIcona);
    add("lbl2000", lbl2000);
    add("lblProgramVersion", lblProgramVersion);
    add("lblDescrizione", lblDescrizione);
    add("cmdChiudi", cmdChiudi);
    setLayout(
        layout::column({layout::row({layout::of(picIcona),
                                     layout::grow(layout::column({layout::of(lbl2000), layout::of(lblProgramVersion),
                                                                  layout::of(lblDescrizione)}))}),
                        layout::rowEnd({layout::of(cmdChiudi)})}));
    setDefaultButton(&cmdChiudi);
    setCancelButton(&cmdChiudi);
}

}  // namespace bravona
