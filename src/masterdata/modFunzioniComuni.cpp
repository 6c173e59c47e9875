#include "masterdata/modFunzioniComuni.h"

#include <array>

#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* zero = "0,00";
constexpr const char* formatoPrezzo = "###,###,##0.00";
constexpr std::array unita{"Pz", "Nr", "Mt", "Cm", "Mm", "Kg", "Gr", "Sa"};

}  // namespace

void CaricaComboIva(Sessione& sessione, ComboBox& combo)
{
    Recordset record = sessione.cn.open("SELECT * FROM TabellaCodiciIva ORDER BY IDCodiceIva");
    for (; !record.eof(); record.moveNext()) {
        combo.addItem(record["CodiceIva"].text() + " - " + record["AliquotaIva"].text() + "%",
                      record["IDCodiceIva"].asLong());
    }
}

void CaricaUnitaMisura(ComboBox& combo)
{
    std::int32_t posto = 0;
    for (const char* sigla : unita) {
        combo.addItem(sigla, ++posto);
    }
}

bool EsisteCodiceArticolo(Sessione& sessione, const std::string& codice, std::int32_t id)
{
    std::string istruzione = "SELECT IDArticolo, CodiceMagazzino FROM Articoli WHERE CodiceMagazzino='" + codice + "' ";
    if (id != -1) {
        istruzione += " AND IDArticolo <> " + std::to_string(id);
    }
    return sessione.cn.open(istruzione).recordCount() >= 1;
}

bool RegistraPrezziArticolo(Sessione& sessione, std::int32_t idArticolo, std::span<TextBox, numeroListini> txtEuro)
{
    try {
        Transaction tutti(sessione.cn);
        sessione.cn.execute("DELETE * FROM ListiniPrezzi WHERE IDarticolo= " + std::to_string(idArticolo));
        Recordset prezzi = sessione.cn.openTable("ListiniPrezzi");
        int listino = 0;
        for (TextBox& casella : txtEuro) {
            if (casella.text().empty()) {
                casella.setText(zero);
            }
            prezzi.addNew();
            prezzi["IDArticolo"] = int{idArticolo};
            prezzi["IDListino"] = ++listino;
            prezzi["Prezzo"] = toCurrency(casella.text());
            prezzi.update();
        }
        prezzi.close();
        tutti.commit();
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione.desktop(), errore, "Modulo: modFunzioniComuni",
                             "Routine: RegistraPrezziArticolo");
        return false;
    }
}

void CaricaPrezziArticolo(Sessione& sessione, std::int32_t idArticolo, std::span<TextBox, numeroListini> txtEuro)
{
    for (TextBox& casella : txtEuro) {
        casella.setText(zero);
    }
    Recordset prezzi = sessione.cn.open("SELECT * FROM ListiniPrezzi WHERE IDarticolo = " + std::to_string(idArticolo));
    for (; !prezzi.eof(); prezzi.moveNext()) {
        // Of the first lists; one beyond has no box.
        const auto posto = static_cast<std::size_t>(prezzi["IDListino"].longOr(0) - 1);
        if (posto < txtEuro.size()) {
            txtEuro[posto].setText(format(prezzi["Prezzo"].currencyOr({}), formatoPrezzo));
        }
    }
}

std::optional<std::string> PrezzoArticolo(Sessione& sessione, std::int32_t idArticolo, std::int32_t idListino)
{
    try {
        Recordset prezzo =
            sessione.cn.open("SELECT * FROM ListiniPrezzi WHERE IDarticolo = " + std::to_string(idArticolo) +
                             " AND IDlistino = " + std::to_string(idListino));
        return prezzo.eof() ? std::string(zero) : format(prezzo["Prezzo"].currencyOr({}), formatoPrezzo);
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione.desktop(), errore, "Routine: RichiamaPrezzoArticolo",
                             "Modulo: modFunzioniComuni");
        return std::nullopt;
    }
}

void RichiamaPrezzoArticolo(Sessione& sessione, std::int32_t idArticolo, std::int32_t idListino, TextBox& txtPrezzo)
{
    if (const auto prezzo = PrezzoArticolo(sessione, idArticolo, idListino)) {
        txtPrezzo.setText(*prezzo);
    }
}

}  // namespace bravona
