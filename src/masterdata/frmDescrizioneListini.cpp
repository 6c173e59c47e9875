#include "masterdata/frmDescrizioneListini.h"

#include "session/modMain.h"

namespace bravona {

frmDescrizioneListini::frmDescrizioneListini(Sessione& sessione)
    : Form(sessione.desktop(), "frmDescrizioneListini", "Descrizione listini", WindowStyle::dialog),
      sessione_(sessione)
{
    // Alt and the last digit of the number leads to the box.
    std::vector<Layout> righe;
    for (std::size_t i = 0; i < Text1.size(); ++i) {
        Text1[i].width = 40;
        Text1[i].onChange = [this] { variato_ = true; };
        const std::size_t numero = i + 1;
        const std::string decina = numero < 10 ? "" : std::to_string(numero / 10);
        righe.push_back(layout::line("Listino " + decina + "&" + std::to_string(numero % 10), layout::of(Text1[i])));
    }
    Command1[0].onClick = [this] { Registra(); };
    Command1[1].onClick = [this] { unload(); };

    add("Text1", Text1);
    add("Command1", Command1);
    setLayout(layout::column(
        {layout::form(std::move(righe)), layout::rowEnd({layout::of(Command1[0]), layout::of(Command1[1])})}));
    setDefaultButton(&Command1[0]);
    setCancelButton(&Command1[1]);
}

void frmDescrizioneListini::onLoad()
{
    CentraFinestra(*this, false);
    Recordset listini = sessione_.cn.open("SELECT Descrizione FROM DescrizioneListini ORDER BY IDListino");
    for (TextBox& casella : Text1) {
        casella.setText(listini["Descrizione"].text());
        listini.moveNext();
    }
    variato_ = false;
}

void frmDescrizioneListini::Registra()
{
    if (variato_) {
        Transaction tutte(sessione_.cn);
        Recordset listini = sessione_.cn.openTable("DescrizioneListini");
        listini.moveFirst();
        for (const TextBox& casella : Text1) {
            listini["Descrizione"] = casella.text();
            listini.update();
            listini.moveNext();
        }
        listini.close();
        tutte.commit();
        Annuncia(sessione_, "Descrizioni dei listini registrate");
    }
    unload();
}

}  // namespace bravona
