#include "documents/CampoNumeroDocumento.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/values/Numeri.h"
#include "session/modMain.h"

namespace bravona {

CampoNumeroDocumento::CampoNumeroDocumento()
{
    add("txtNumeroDocumento", txtNumeroDocumento);
    txtNumeroDocumento.align = Align::right;
    txtNumeroDocumento.onKeyPress = filtraTasti(ValidaCifre);
}

std::optional<std::int32_t> CampoNumeroDocumento::numero()
{
    try {
        return toInt32(txtNumeroDocumento.text());
    } catch (const Errore&) {
        MostraValoreNonValido(txtNumeroDocumento);
        return std::nullopt;
    }
}

Layout CampoNumeroDocumento::linea()
{
    return layout::line("&Numero", layout::row({layout::of(txtNumeroDocumento), layout::stretch()}));
}

}  // namespace bravona
