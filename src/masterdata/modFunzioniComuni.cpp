#include "masterdata/modFunzioniComuni.h"

#include <array>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* zero = "0,00";
constexpr const char* formatoPrezzo = "###,###,##0.00";
constexpr std::array unita{"Pz", "Nr", "Mt", "Cm", "Mm", "Kg", "Gr", "Sa"};

// Of the first lists, 0 where the article has none; one beyond has no box.
std::array<Currency, numeroListini> prezziInArchivio(Sessione& sessione, std::int32_t idArticolo)
{
    std::array<Currency, numeroListini> prezzi{};
    Recordset record = sessione.cn.open("SELECT * FROM ListiniPrezzi WHERE IDarticolo = " + std::to_string(idArticolo));
    for (; !record.eof(); record.moveNext()) {
        const auto posto = static_cast<std::size_t>(record["IDListino"].longOr(0) - 1);
        if (posto < prezzi.size()) {
            prezzi.at(posto) = record["Prezzo"].currencyOr({});
        }
    }
    return prezzi;
}

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

bool EsisteCodiceIva(Sessione& sessione, std::int32_t id)
{
    return sessione.cn.open("SELECT IDCodiceIva FROM TabellaCodiciIva WHERE IDCodiceIva=" + std::to_string(id))
               .recordCount() >= 1;
}

bool EsisteCodiceArticolo(Sessione& sessione, const std::string& codice, std::int32_t id)
{
    std::string istruzione =
        "SELECT IDArticolo, CodiceMagazzino FROM Articoli WHERE CodiceMagazzino=" + quotedText(codice) + " ";
    if (id != -1) {
        istruzione += " AND IDArticolo <> " + std::to_string(id);
    }
    return sessione.cn.open(istruzione).recordCount() >= 1;
}

bool RegistraPrezziArticolo(Sessione& sessione, std::int32_t idArticolo, std::span<TextBox, numeroListini> txtEuro,
                            std::span<const std::string, numeroListini> comeMostrati)
{
    try {
        Transaction tutti(sessione.cn);
        const std::array<Currency, numeroListini> inArchivio = prezziInArchivio(sessione, idArticolo);
        sessione.cn.execute("DELETE * FROM ListiniPrezzi WHERE IDarticolo= " + std::to_string(idArticolo));
        Recordset prezzi = sessione.cn.openTable("ListiniPrezzi");
        for (std::size_t i = 0; i < numeroListini; ++i) {
            TextBox& casella = txtEuro[i];
            const bool battuto = casella.text() != comeMostrati[i];
            if (casella.text().empty()) {
                casella.setText(zero);
            }
            prezzi.addNew();
            prezzi["IDArticolo"] = int{idArticolo};
            prezzi["IDListino"] = static_cast<int>(i) + 1;
            prezzi["Prezzo"] = battuto ? toCurrency(casella.text()) : inArchivio.at(i);
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
    const std::array<Currency, numeroListini> prezzi = prezziInArchivio(sessione, idArticolo);
    for (std::size_t i = 0; i < numeroListini; ++i) {
        txtEuro[i].setText(format(prezzi.at(i), formatoPrezzo));
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
