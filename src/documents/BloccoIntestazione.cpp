#include "documents/BloccoIntestazione.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"

namespace bravona {

namespace {
constexpr std::size_t altro = 4;
}

BloccoIntestazione::BloccoIntestazione()
{
    cmbRegistro.width = 24;
    txtNumeroDocumento.align = Align::right;
    txtNumeroDocumento.onKeyPress = filtraTasti(ValidaCifre);
    txtNumeroDocumento.onChange = [this] {
        if (txtNumeroDocumento.text().empty())
            txtNumeroDocumento.setText("1");
    };
    txtEsenzioneIVA.multiLine = true;
    txtEsenzioneIVA.lines = 2;
    txtEsenzioneIVA.grows = true;
    lblEsenteIva.style = TextStyle::title;
    txtAltro.setAccessibleName("Altra causale");
    optTipoBolla[0].choose();
}

std::string BloccoIntestazione::CausaleDocumento() const
{
    static constexpr std::array<const char*, 4> causali{"VVENDITA", "RRESO", "CCAMPIONE", "WVISIONE"};
    for (std::size_t i = 0; i < causali.size(); ++i) {
        if (optTipoBolla[i].chosen())
            return causali[i];
    }
    return "A" + upper(txtAltro.text());
}

bool BloccoIntestazione::causaleMancante() const
{
    return optTipoBolla[altro].chosen() && txtAltro.text().empty();
}

void BloccoIntestazione::registra(const std::function<void(const std::string&, Control&, int)>& aggiungi)
{
    constexpr int semplice = -1;
    const auto uno = [&](const char* nome, Control& controllo) { aggiungi(nome, controllo, semplice); };
    uno("fraIntestazioneDocumento", fraIntestazioneDocumento);
    uno("cmbRegistro", cmbRegistro);
    uno("txtNumeroDocumento", txtNumeroDocumento);
    uno("dtpDataDocumento", dtpDataDocumento);
    uno("txtEsenzioneIVA", txtEsenzioneIVA);
    uno("lblEsenteIva", lblEsenteIva);
    uno("fraCausale", fraCausale);
    for (int i = 0; i < static_cast<int>(optTipoBolla.size()); ++i)
        aggiungi("optTipoBolla", optTipoBolla[static_cast<std::size_t>(i)], i);
    uno("txtAltro", txtAltro);
}

Layout BloccoIntestazione::layout()
{
    using namespace layout;
    return frame(fraIntestazioneDocumento,
                 column({form({line("Registro", row({of(cmbRegistro), form({line("Numero", of(txtNumeroDocumento))}),
                                                     form({line("Data", of(dtpDataDocumento))}), stretch()})),
                               line("Esenzione IVA", row({of(txtEsenzioneIVA), of(lblEsenteIva)}))}),
                         frame(fraCausale, row({of(optTipoBolla[0]), of(optTipoBolla[1]), of(optTipoBolla[2]),
                                                of(optTipoBolla[3]), of(optTipoBolla[4]), of(txtAltro), stretch()}))}));
}

}  // namespace bravona
