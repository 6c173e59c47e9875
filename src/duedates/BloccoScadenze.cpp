#include "duedates/BloccoScadenze.h"

namespace bravona {

BloccoScadenze::BloccoScadenze(Sessione& sessione) : Griglia(sessione.clock()), sessione_(sessione)
{
    add("Griglia", Griglia);
    add("cmdRicalcola", cmdRicalcola);
    cmdRicalcola.onClick = [this] {
        Griglia.Modificato = false;
        GeneraScadenze();
    };
}

void BloccoScadenze::svuota()
{
    Griglia.mostra({});
}

void BloccoScadenze::GeneraScadenze()
{
    if (Griglia.Modificato)
        return;
    const BasePiano base = base_();
    Griglia.mostra(calcolaPiano(sessione_.cn, base.idModalitaPagamento, base.data, base.registro, base.totale));
}

void BloccoScadenze::mostra(std::span<const Rata> rate)
{
    Griglia.Modificato = false;
    Griglia.mostra(rate);
}

std::vector<Rata> BloccoScadenze::rate() const
{
    return Griglia.rate();
}

void BloccoScadenze::blocca(bool bloccato)
{
    Griglia.setLocked(bloccato);
    cmdRicalcola.setEnabled(!bloccato);
}

Layout BloccoScadenze::layout()
{
    return layout::column({layout::grow(layout::of(Griglia)), layout::rowEnd({layout::of(cmdRicalcola)})});
}

}  // namespace bravona
