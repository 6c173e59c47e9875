#include "maintenance/frmBackup.h"

#include "session/modMain.h"

namespace bravona {

frmBackup::frmBackup(Sessione& sessione)
    : Form(sessione.desktop(), "frmBackup", "Backup / Ripristino Archivio"),
      sessione_(sessione)
{
    lblBackup.wrap = true;
    lblRipristino.wrap = true;
    cmdBackup.onClick = [this] { passaA("FRM_Backup"); };
    Command2.onClick = [this] { passaA("FRMRipristino"); };
    cmdChiudi.onClick = [this] { unload(); };

    add("lblBackup", lblBackup);
    add("cmdBackup", cmdBackup);
    add("lblRipristino", lblRipristino);
    add("Command2", Command2);
    add("cmdChiudi", cmdChiudi);
    setLayout(layout::column({layout::of(lblBackup), layout::rowEnd({layout::of(cmdBackup)}), layout::of(lblRipristino),
                              layout::rowEnd({layout::of(Command2)}), layout::stretch(),
                              layout::rowEnd({layout::of(cmdChiudi)})}));
    setCancelButton(&cmdChiudi);
}

void frmBackup::onLoad()
{
    CentraFinestra(*this, false);
}

void frmBackup::passaA(const char* schermata)
{
    Form& seguente = sessione_.schermate().get(schermata);
    unload();
    seguente.showModal();
}

}  // namespace bravona
