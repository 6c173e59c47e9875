#include "documents/BloccoIntestazione.h"

#include <algorithm>

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {
constexpr std::size_t altro = 4;
constexpr const char* letteraAltro = "A";
constexpr std::array<std::pair<const char*, const char*>, altro> causali{
    {{"V", "VENDITA"}, {"R", "RESO"}, {"C", "CAMPIONE"}, {"W", "VISIONE"}}};
}  // namespace

BloccoIntestazione::BloccoIntestazione()
{
    add("fraIntestazioneDocumento", fraIntestazioneDocumento);
    add("cmbRegistro", cmbRegistro);
    add("txtNumeroDocumento", txtNumeroDocumento);
    add("dtpDataDocumento", dtpDataDocumento);
    add("txtEsenzioneIVA", txtEsenzioneIVA);
    add("lblEsenteIva", lblEsenteIva);
    add("lblAvvisoData", lblAvvisoData);
    add("fraCausale", fraCausale);
    add("optTipoBolla", optTipoBolla);
    add("txtAltro", txtAltro);

    cmbRegistro.width = 24;
    txtNumeroDocumento.align = Align::right;
    txtNumeroDocumento.onKeyPress = filtraTasti(ValidaCifre);
    txtNumeroDocumento.onChange = [this] {
        if (txtNumeroDocumento.text().empty()) {
            txtNumeroDocumento.setText("1");
            txtNumeroDocumento.select(0, 1);  // so that the next digit takes its place
        }
    };
    txtEsenzioneIVA.multiLine = true;
    txtEsenzioneIVA.lines = 2;
    txtEsenzioneIVA.grows = true;
    lblEsenteIva.style = TextStyle::title;
    lblAvvisoData.setForeColour(colours::red);
    txtAltro.setAccessibleName("Altra causale");
    optTipoBolla[0].choose();
}

CausaleTrasporto BloccoIntestazione::causale() const
{
    for (std::size_t i = 0; i < causali.size(); ++i) {
        if (optTipoBolla[i].chosen())
            return {causali[i].first, causali[i].second};
    }
    return {letteraAltro, txtAltro.text()};
}

void BloccoIntestazione::mostraCausale(const CausaleTrasporto& causale)
{
    if (causale.Tipo == letteraAltro) {
        optTipoBolla[altro].choose();
        txtAltro.setText(causale.testo);
        return;
    }
    txtAltro.setText({});
    std::size_t scelta = 0;
    for (std::size_t i = 0; i < causali.size(); ++i) {
        if (causale.Tipo == causali[i].first)
            scelta = i;
    }
    optTipoBolla[scelta].choose();
}

std::optional<std::int32_t> BloccoIntestazione::numero() const
{
    constexpr std::size_t cifreMassime = 9;
    const std::string testo = trim(txtNumeroDocumento.text());
    const std::size_t prima = std::min(testo.find_first_not_of('0'), testo.size());
    if (!isNumeric(testo) || prima == testo.size() || testo.size() - prima > cifreMassime)
        return std::nullopt;
    return toInt32(testo);
}

bool BloccoIntestazione::causaleMancante() const
{
    return optTipoBolla[altro].chosen() && txtAltro.text().empty();
}

Layout BloccoIntestazione::layout()
{
    using namespace layout;
    return frame(
        fraIntestazioneDocumento,
        column({form({line("Registro", row({of(cmbRegistro), form({line("Numero", of(txtNumeroDocumento))}),
                                            form({line("Data", of(dtpDataDocumento))}), of(lblAvvisoData), stretch()})),
                      line("Esenzione IVA", row({of(txtEsenzioneIVA), of(lblEsenteIva)}))}),
                frame(fraCausale, row({of(optTipoBolla[0]), of(optTipoBolla[1]), of(optTipoBolla[2]),
                                       of(optTipoBolla[3]), of(optTipoBolla[4]), of(txtAltro), stretch()}))}));
}

}  // namespace bravona
