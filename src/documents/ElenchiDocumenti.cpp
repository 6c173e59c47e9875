#include "documents/ElenchiDocumenti.h"

#include "platform/values/Date.h"

namespace bravona {

namespace {

constexpr std::size_t opzioneTutti = 0;
constexpr std::size_t colonnaData = 1;

}  // namespace

ElenchiDocumenti::ElenchiDocumenti(Connection& cn, RegoleElenchi regole)
    : optTipoVisualizzazione{OptionButton{regole.tutti}, OptionButton{regole.perSoggetto}},
      Frame1(regole.documenti),
      fraDocumenti(regole.perSoggetto),
      albero(cn, std::move(regole.albero))
{
    add("fraTipoVisualizzazione", fraTipoVisualizzazione);
    add("optTipoVisualizzazione", optTipoVisualizzazione);
    add("Frame1", Frame1);
    add("lvwDocumentiEx", lvwDocumentiEx);
    add("fraDocumenti", fraDocumenti);
    add(albero);
    add("lvwDocumenti", lvwDocumenti);
    for (ListView* elenco : {&lvwDocumentiEx, &lvwDocumenti}) {
        elenco->sortable = true;
        elenco->lines = 14;
        elenco->setAccessibleName(regole.documenti);
        elenco->onDblClick = [this] {
            if (visualizza)
                visualizza();
        };
    }
    for (OptionButton& opzione : optTipoVisualizzazione)
        opzione.onClick = [this] { mostraVista(); };
}

bool ElenchiDocumenti::tutti() const
{
    return optTipoVisualizzazione[opzioneTutti].chosen();
}

void ElenchiDocumenti::mostraTutti()
{
    optTipoVisualizzazione[opzioneTutti].choose();
    mostraVista();
}

void ElenchiDocumenti::mostraVista()
{
    Frame1.setVisible(tutti());
    fraDocumenti.setVisible(!tutti());
}

const ListView& ElenchiDocumenti::inVista() const
{
    return tutti() ? lvwDocumentiEx : lvwDocumenti;
}

void ElenchiDocumenti::mostraMesi(std::int32_t idSoggetto)
{
    MesiConDocumenti mesi;
    for (std::size_t riga = 0; riga < lvwDocumenti.rowCount(); ++riga) {
        const auto data = Date::parse(lvwDocumenti.row(riga).cell(colonnaData));
        mesi.set(data ? static_cast<std::size_t>(data->month()) : 0);
    }
    albero.mostraMesi(idSoggetto, mesi);
}

Layout ElenchiDocumenti::layout()
{
    using namespace layout;
    return column(
        {frame(fraTipoVisualizzazione, row({of(optTipoVisualizzazione[0]), of(optTipoVisualizzazione[1]), stretch()})),
         grow(frame(Frame1, column({grow(of(lvwDocumentiEx))}))),
         grow(frame(fraDocumenti, albero.layout(of(lvwDocumenti))))});
}

void riempi(ListView& elenco, Recordset record, const std::function<ListRow(Recordset&)>& riga)
{
    std::vector<ListRow> righe;
    righe.reserve(record.recordCount());
    for (; !record.eof(); record.moveNext())
        righe.push_back(riga(record));
    elenco.clear();
    elenco.append(std::move(righe));
}

void rileggi(ListView& elenco, const std::function<void()>& carica)
{
    const std::string scelta = elenco.selected() ? elenco.row(*elenco.selected()).key : std::string();
    const int colonna = elenco.sortColumn();
    const bool crescente = elenco.sortAscending();
    carica();
    if (colonna >= 0)
        elenco.sort(static_cast<std::size_t>(colonna), crescente);
    if (const auto riga = elenco.find(scelta)) {
        elenco.select(riga);
        elenco.ensureVisible(*riga);
    }
}

}  // namespace bravona
