#include "masterdata/clsTabellaCodiciIVA.h"

#include <algorithm>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Lists.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titoloTabella = "Tabella codici IVA";

std::int16_t percentoIntero(Currency aliquota)
{
    return Value(aliquota.tenThousandths() / Currency::unitaPerEuro).toInt();
}

// As a number stands in a statement.
std::string numeroIstruzione(Currency numero)
{
    return replaceAll(numberText(numero), ",", ".");
}

}  // namespace

clsTabellaCodiciIVA::clsTabellaCodiciIVA(Sessione& sessione) : sessione_(sessione)
{
    Refresh();
}

void clsTabellaCodiciIVA::Refresh()
{
    Recordset record = sessione_.cn.open("SELECT * FROM TabellaCodiciIva ORDER BY IDCodiceIva");
    std::vector<Codice> codici;
    for (; !record.eof(); record.moveNext()) {
        codici.push_back({.CodiceIva = record["CodiceIva"].text(),
                          .AliquotaIva = percentoIntero(record["AliquotaIva"].currencyOr({})),
                          .Descrizione = record["Descrizione"].text(),
                          .IDCodiceIva = record["IDCodiceIva"].asLong()});
    }
    codici_ = std::move(codici);
}

// One statement and the table read again. `rifiuto` is what the store may refuse by a message of its own.
Esito clsTabellaCodiciIVA::scrivi(const std::string& istruzione, const Rifiuto& rifiuto)
{
    try {
        const clsCursorWait attesa(sessione_.desktop());
        sessione_.cn.execute(istruzione);
        Refresh();
        return {};
    } catch (const Errore& errore) {
        return {.riuscito = false,
                .messaggio = errore.numero() == rifiuto.numero
                                 ? MessageBox{.title = titoloTabella, .text = rifiuto.messaggio}
                                 : ErroreStandard(errore, rifiuto.modulo, rifiuto.routine)};
    }
}

Esito clsTabellaCodiciIVA::AddCodiceIVA(const std::string& codice, Currency aliquota, const std::string& descrizione)
{
    return scrivi("INSERT INTO TabellaCodiciIVA (AliquotaIVA,CodiceIVA,Descrizione) VALUES (" +
                      numeroIstruzione(aliquota) + "," + quotedText(codice) + ", " + quotedText(descrizione) + ")",
                  {.numero = errori::chiaveDuplicata,
                   .messaggio = "Attenzione! Il codice indicato e gia' presente in archivio.",
                   .modulo = "Modulo: clsTabellaCodiciIva",
                   .routine = "Routine: AddCodiceIVA"});
}

Esito clsTabellaCodiciIVA::RemoveAliquotaIVA(std::int32_t id)
{
    return scrivi("DELETE * FROM TabellaCodiciIva WHERE IDCodiceIva=" + std::to_string(id),
                  {.numero = errori::recordCorrelati,
                   .messaggio = "Impossibile eliminare il codice IVA indicato "
                                "in quanto e' utilizzato in alcuni documenti e/o articoli.",
                   .modulo = "Modulo: clsTabellaCodiciIva",
                   .routine = "Routine: RemoveAliquotaIVA"});
}

Esito clsTabellaCodiciIVA::SetDescrizioneAliquotaIVA(std::int32_t id, const std::string& descrizione)
{
    return scrivi("UPDATE TabellaCodiciIVA SET Descrizione=" + quotedText(descrizione) +
                      " WHERE IDCodiceIVA=" + std::to_string(id),
                  {.numero = errori::testoObbligatorioVuoto,
                   .messaggio = "Attenzione! Errore nella modifica. Non sono stati indicati i dati richiesti!",
                   .modulo = "Nel modulo: clsTabellaCodiciIVA",
                   .routine = "Routine: SetDescrizioneAliquotaIva"});
}

const clsTabellaCodiciIVA::Codice* clsTabellaCodiciIVA::daID(std::int32_t id) const
{
    const auto trovato = std::ranges::find(codici_, id, &Codice::IDCodiceIva);
    return trovato == codici_.end() ? nullptr : &*trovato;
}

const clsTabellaCodiciIVA::Codice* clsTabellaCodiciIVA::daCodice(const std::string& codice) const
{
    const auto trovato = std::ranges::find(codici_, codice, &Codice::CodiceIva);
    return trovato == codici_.end() ? nullptr : &*trovato;
}

std::string clsTabellaCodiciIVA::GetCodiceAliquotaIvaFromID(std::int32_t id) const
{
    const Codice* codice = daID(id);
    return codice ? codice->CodiceIva : std::string();
}

std::string clsTabellaCodiciIVA::GetDescrizioneAliquotaIvaFromID(std::int32_t id) const
{
    const Codice* codice = daID(id);
    return codice ? codice->Descrizione : std::string();
}

std::int16_t clsTabellaCodiciIVA::GetValoreAliquotaIvaFromID(std::int32_t id) const
{
    const Codice* codice = daID(id);
    return codice ? codice->AliquotaIva : std::int16_t{0};
}

std::int32_t clsTabellaCodiciIVA::GetIDAliquotaIvaFromCodice(const std::string& codice) const
{
    const Codice* trovato = daCodice(codice);
    return trovato ? trovato->IDCodiceIva : 0;
}

std::string clsTabellaCodiciIVA::GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const
{
    const Codice* trovato = daCodice(codice);
    return trovato ? trovato->Descrizione : std::string();
}

std::int16_t clsTabellaCodiciIVA::GetValoreAliquotaIvaFromCodice(const std::string& codice) const
{
    const Codice* trovato = daCodice(codice);
    return trovato ? trovato->AliquotaIva : std::int16_t{0};
}

void clsTabellaCodiciIVA::VisualizzaTabellaIvaSuListView(ListView& lista) const
{
    lista.clear();
    for (const Codice& codice : codici_) {
        ListRow riga;
        riga.text = codice.CodiceIva;
        riga.key = "c" + std::to_string(codice.IDCodiceIva);
        riga.sub = {{std::to_string(codice.AliquotaIva), {}}, {codice.Descrizione, {}}};
        lista.add(std::move(riga));
    }
}

clsTabellaCodiciIVA& TabellaIvaDi(const Sessione& sessione)
{
    auto* tabella = dynamic_cast<clsTabellaCodiciIVA*>(sessione.TabellaIva.get());
    if (!tabella) {
        throw Errore(errori::selezioneMancante, "La tabella dei codici IVA non è caricata");
    }
    return *tabella;
}

}  // namespace bravona
