#include "duedates/BloccoScadenze.h"

#include <algorithm>

#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"

namespace bravona {

BloccoScadenze::BloccoScadenze(Sessione& sessione) : Griglia(sessione.clock()), sessione_(sessione)
{
    add("Griglia", Griglia);
    add("cmdRicalcola", cmdRicalcola);
    add("lblSommaRate", lblSommaRate);
    add("lblDifferenzaRate", lblDifferenzaRate);
    lblSommaRate.style = TextStyle::title;
    lblDifferenzaRate.style = TextStyle::title;
    lblDifferenzaRate.setForeColour(colours::red);
    cmdRicalcola.onClick = [this] { ricalcola(); };
    Griglia.importiCambiati = [this] { mostraSomma(); };
}

void BloccoScadenze::svuota()
{
    Griglia.mostra({});
    mostraSomma();
}

void BloccoScadenze::ricalcola()
{
    if (Griglia.Modificato &&
        !sessione_.desktop().askBeforeLosing("Le scadenze sono state modificate a mano. Ricalcolarle?", titolo_)) {
        return;
    }
    Griglia.Modificato = false;
    Griglia.mostra(piano());
    mostraSomma();
}

void BloccoScadenze::GeneraScadenze()
{
    if (Griglia.Modificato)
        return;
    std::vector<Rata> nuove = piano();
    std::vector<Rata> vecchie = Griglia.rate();
    for (Rata& nuova : nuove) {
        const auto uguale = std::ranges::find_if(vecchie, [&](const Rata& vecchia) {
            return vecchia.Scadenza == nuova.Scadenza && vecchia.Avere == nuova.Avere && vecchia.Dare == nuova.Dare;
        });
        if (uguale == vecchie.end())
            continue;
        nuova = *uguale;
        vecchie.erase(uguale);
    }
    Griglia.mostra(nuove);
    mostraSomma();
}

std::vector<Rata> BloccoScadenze::piano() const
{
    const BasePiano base = base_();
    return calcolaPiano(sessione_.cn, base.idModalitaPagamento, base.data, base.registro, base.totale);
}

void BloccoScadenze::mostra(std::span<const Rata> rate)
{
    Griglia.Modificato = false;
    Griglia.mostra(rate);
    mostraSomma();
}

std::vector<Rata> BloccoScadenze::rate() const
{
    return Griglia.rate();
}

// An amount just being typed may not be one yet.
std::vector<Rata> BloccoScadenze::rateLeggibili() const
{
    try {
        return Griglia.rate();
    } catch (const Errore&) {
        return {};
    }
}

void BloccoScadenze::mostraSomma()
{
    const std::vector<Rata> rate = rateLeggibili();
    if (rate.empty() || !base_) {
        lblSommaRate.setCaption({});
        lblDifferenzaRate.setCaption({});
        return;
    }
    Currency somma;
    for (const Rata& rata : rate)
        somma += rata.Avere.value_or(Currency{}) - rata.Dare.value_or(Currency{});
    const BasePiano base = base_();
    const Currency dovuto = base.registro == 1 ? base.totale : -base.totale;
    lblSommaRate.setCaption("Somma delle scadenze: " + FormattaImporto(somma));
    lblDifferenzaRate.setCaption(somma == dovuto ? std::string()
                                                 : "Differenza dal totale: " + FormattaImporto(somma - dovuto));
}

void BloccoScadenze::blocca(bool bloccato)
{
    Griglia.setLocked(bloccato);
    cmdRicalcola.setEnabled(!bloccato);
}

Layout BloccoScadenze::layout()
{
    using namespace layout;
    return column({grow(of(Griglia)), row({of(lblSommaRate), of(lblDifferenzaRate), stretch(), of(cmdRicalcola)})});
}

}  // namespace bravona
