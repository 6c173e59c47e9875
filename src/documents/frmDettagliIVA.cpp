#include "documents/frmDettagliIVA.h"

namespace bravona {

frmDettagliIVA::frmDettagliIVA(Sessione& sessione)
    : Form(sessione.desktop(), "frmDettagliIVA", "Dettagli IVA", WindowStyle::dialog)
{
    add("lblTitolo", lblTitolo);
    add("txtDettagli", txtDettagli);
    add("cmdDocumento", cmdDocumento);
    lblTitolo.fixedPitch = true;
    txtDettagli.fixedPitch = true;
    txtDettagli.multiLine = true;
    txtDettagli.lines = 7;  // five groups, the end of the last and no scroll bar
    txtDettagli.setLocked(true);
    txtDettagli.selectOnFocus = false;
    txtDettagli.setAccessibleName("Dettagli IVA");
    cmdDocumento.onClick = [this] { unload(); };
    setLayout(layout::column(
        {layout::of(lblTitolo), layout::grow(layout::of(txtDettagli)), layout::rowEnd({layout::of(cmdDocumento)})}));
    setDefaultButton(&cmdDocumento);
    setCancelButton(&cmdDocumento);
}

}  // namespace bravona
