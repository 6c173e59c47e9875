#include "session/frmDescrizioneRegistri.h"

#include "session/modMain.h"

namespace bravona {

namespace {
constexpr int larghezzaDescrizione = 2800;  // twips
}

frmDescrizioneRegistri::frmDescrizioneRegistri(Sessione& sessione)
    : Form(sessione.desktop(), "frmDescrizioneRegistri", "Descrizione Registri"),
      sessione_(sessione)
{
    DataGrid1.allowAddNew = false;
    DataGrid1.allowDelete = false;
    DataGrid1.setAccessibleName("Descrizione dei registri");
    Command1.onClick = [this] { unload(); };

    add("DataGrid1", DataGrid1);
    add("Command1", Command1);
    setLayout(layout::column({layout::grow(layout::of(DataGrid1)), layout::rowEnd({layout::of(Command1)})}));
    setCancelButton(&Command1);
}

void frmDescrizioneRegistri::onLoad()
{
    registri_ = sessione_.cn.open(
        "SELECT Descrizione,CodiceRegistro FROM TabellaRegistri Where CodiceRegistro <>1 ORDER BY CodiceRegistro",
        OpenMode::updatable);
    DataColumn descrizione;
    descrizione.field = "Descrizione";
    descrizione.width = larghezzaDescrizione;
    DataColumn codice;
    codice.field = "CodiceRegistro";
    codice.width = 0;
    DataGrid1.setColumns({descrizione, codice});
    DataGrid1.bind(&registri_);
    CentraFinestra(*this, false);
}

bool frmDescrizioneRegistri::onQueryUnload(CloseCause)
{
    return registra();
}

bool frmDescrizioneRegistri::registra()
{
    if (!registri_.isOpen()) {
        return true;
    }
    if (!DataGrid1.userEndEdit(true) || !DataGrid1.commitRow()) {
        return false;
    }
    DataGrid1.bind(nullptr);
    registri_.close();
    CaricaRegistri(sessione_);
    return true;
}

}  // namespace bravona
