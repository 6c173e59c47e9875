#include "masterdata/frmModalitaPagamento.h"

#include <utility>

#include "session/modMain.h"

namespace bravona {

namespace {

// The payment counts from the date of the document, or from the end of its month.
constexpr const char* dataFattura = "DF";
constexpr const char* fineMese = "FM";
constexpr const char* campoDecorrenza = "DF-FM";

constexpr int larghezzaNome = 4600;  // twips
constexpr int larghezzaGiorni = 650;
constexpr int larghezzaDecorrenza = 1000;

}  // namespace

frmModalitaPagamento::frmModalitaPagamento(Sessione& sessione)
    : Form(sessione.desktop(), "frmModalitaPagamento", "Modalita pagamento"),
      sessione_(sessione)
{
    DataGrid1.setAccessibleName("Modalità di pagamento");
    DataGrid1.onBeforeUpdate = [this] { completa(); };
    DataGrid1.onButtonClick = [this](std::size_t) { cambiaDecorrenza(); };
    // Rows are deleted in the grid itself.
    cmdElimina.setToolTip("Una riga si elimina nella griglia, con Ctrl+Canc");
    cmdChiudi.onClick = [this] { unload(); };

    add("DataGrid1", DataGrid1);
    add("cmdElimina", cmdElimina);
    add("cmdChiudi", cmdChiudi);
    setLayout(layout::column(
        {layout::grow(layout::of(DataGrid1)), layout::rowEnd({layout::of(cmdElimina), layout::of(cmdChiudi)})}));
    setCancelButton(&cmdChiudi);
}

void frmModalitaPagamento::onLoad()
{
    pagamenti_ = sessione_.cn.open("SELECT * FROM ModalitaPagamento ORDER BY ModalitaPagamento", OpenMode::batch);
    std::vector<DataColumn> colonne;
    for (const ColumnInfo& campo : pagamenti_.columns()) {
        DataColumn colonna;
        colonna.field = campo.name;
        if (colonne.empty()) {
            colonna.width = 0;
        } else if (campo.name == campoDecorrenza) {
            colonnaDecorrenza_ = colonne.size();
            colonna.width = larghezzaDecorrenza;
            colonna.align = Align::centre;
            colonna.locked = true;
            colonna.button = true;
        } else if (campo.type == FieldType::text) {
            colonna.caption = "Modalità pagamento";
            colonna.width = larghezzaNome;
        } else {
            colonna.width = larghezzaGiorni;
            colonna.align = Align::right;
        }
        colonne.push_back(std::move(colonna));
    }
    DataGrid1.setColumns(std::move(colonne));
    DataGrid1.bind(&pagamenti_);
    CentraFinestra(*this, false);
}

bool frmModalitaPagamento::onQueryUnload(CloseCause)
{
    if (!pagamenti_.isOpen()) {
        return true;
    }
    if (!DataGrid1.userLeave()) {
        return false;
    }
    try {
        pagamenti_.updateBatch();
        return true;
    } catch (const Errore& errore) {
        if (!std::exchange(nonSalvata_, true)) {
            throw;
        }
        desktop().report(errore);
        return desktop().askBeforeLosing("Le modifiche non sono state salvate. Chiudere senza salvarle?",
                                         "Modalita pagamento");
    }
}

void frmModalitaPagamento::onUnload()
{
    DataGrid1.bind(nullptr);
    pagamenti_.close();
}

std::string frmModalitaPagamento::decorrenza() const
{
    return DataGrid1.cellText(DataGrid1.row(), colonnaDecorrenza_);
}

void frmModalitaPagamento::completa()
{
    if (decorrenza().empty()) {
        DataGrid1.setCellValue(colonnaDecorrenza_, dataFattura);
    }
}

void frmModalitaPagamento::cambiaDecorrenza()
{
    DataGrid1.setCellValue(colonnaDecorrenza_, decorrenza() == dataFattura ? fineMese : dataFattura);
}

}  // namespace bravona
