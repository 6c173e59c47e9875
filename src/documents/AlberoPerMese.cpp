#include "documents/AlberoPerMese.h"

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr const char* chiaveRadice = "ROOT";
constexpr int mesi = 12;

std::string chiaveSoggetto(std::int32_t id)
{
    return "c" + std::to_string(id);
}

std::string chiaveMese(int mese, std::int32_t idSoggetto)
{
    return "m" + format(mese, "00") + std::to_string(idSoggetto);
}

std::string testoMese(int mese)
{
    return mese == 0 ? "Senza data" : nomeMese(mese);
}

}  // namespace

std::size_t meseDi(const Field& data)
{
    return data.isNull() ? 0 : static_cast<std::size_t>(data.asDate().month());
}

std::string documentiDelNodo(const NodoPerMese& nodo, const std::string& tabella, const std::string& anno,
                             const std::string& registro)
{
    return "SELECT * FROM " + tabella + " WHERE IDCliente=" + std::to_string(nodo.idSoggetto) +
           (nodo.genere == NodoPerMese::Genere::mese ? " AND month(DataDocumento) = " + format(nodo.mese, "00")
                                                     : std::string()) +
           " AND AnnoDocumento=" + anno + " AND NumeroRegistro=" + registro + " ORDER BY NumeroDocumento";
}

AlberoPerMese::AlberoPerMese(Connection& cn, RegoleAlbero regole) : cn_(cn), regole_(std::move(regole))
{
    add("tvwClienti", tvwClienti);
    add("lblCliente", lblCliente);
    tvwClienti.setAccessibleName(regole_.radice);
    tvwClienti.onNodeClick = [this](int posizione) { scegli(posizione); };
}

void AlberoPerMese::carica()
{
    Recordset soggetti = cn_.open(regole_.soggetti);
    riempi(soggetti);
}

void AlberoPerMese::riempi(Recordset& soggetti)
{
    tvwClienti.clear();
    const int radice = tvwClienti.add({}, chiaveRadice, regole_.radice);
    for (; !soggetti.eof(); soggetti.moveNext())
        tvwClienti.add(chiaveRadice, chiaveSoggetto(soggetti["IDCliente"].asLong()), soggetti["Cliente"].text());
    tvwClienti.setExpanded(radice, true);
    tvwClienti.ensureVisible(radice);
    lblCliente.setCaption({});
}

bool AlberoPerMese::mostra(Recordset& soggetti) const
{
    const auto& nodi = tvwClienti.nodes();
    if (nodi.empty() || nodi.front().children.size() != soggetti.recordCount())
        return false;
    for (const int figlio : nodi.front().children) {
        const TreeNode& nodo = nodi[static_cast<std::size_t>(figlio)];
        if (nodo.key != chiaveSoggetto(soggetti["IDCliente"].asLong()) || nodo.text != soggetti["Cliente"].text())
            return false;
        soggetti.moveNext();
    }
    return true;
}

void AlberoPerMese::rileggi()
{
    Recordset soggetti = cn_.open(regole_.soggetti);
    if (mostra(soggetti))
        return;
    const std::vector<TreeNode> prima = tvwClienti.nodes();
    const int sceltaPrima = tvwClienti.selected();
    if (soggetti.recordCount() > 0)
        soggetti.moveFirst();
    riempi(soggetti);
    for (const TreeNode& nodo : prima) {
        if (nodo.parent > 0) {
            const TreeNode& soggetto = prima[static_cast<std::size_t>(nodo.parent)];
            if (const int posto = tvwClienti.find(soggetto.key); posto >= 0) {
                tvwClienti.add(soggetto.key, nodo.key, nodo.text);
                tvwClienti.setBold(nodo.key, nodo.bold);
                tvwClienti.setExpanded(posto, soggetto.expanded);
            }
        }
    }
    const int scelta = sceltaPrima < 0 ? -1 : tvwClienti.find(prima[static_cast<std::size_t>(sceltaPrima)].key);
    if (scelta >= 0) {
        tvwClienti.select(scelta);
        racconta(scelta);
    }
}

void AlberoPerMese::mostraMesi(std::int32_t idSoggetto, const MesiConDocumenti& mesiPieni)
{
    if (tvwClienti.find(chiaveSoggetto(idSoggetto)) < 0)
        return;
    for (int mese = regole_.tuttiIMesi ? 1 : 0; mese <= mesi; ++mese) {
        const bool pieno = mesiPieni.test(static_cast<std::size_t>(mese));
        const std::string chiave = chiaveMese(mese, idSoggetto);
        if (tvwClienti.find(chiave) < 0) {
            if (!regole_.tuttiIMesi && !pieno)
                continue;
            tvwClienti.add(chiaveSoggetto(idSoggetto), chiave, testoMese(mese));
        }
        if (regole_.tuttiIMesi)
            tvwClienti.setBold(chiave, pieno);
    }
}

NodoPerMese AlberoPerMese::nodo(int posizione) const
{
    const std::string& chiave = tvwClienti.nodes().at(static_cast<std::size_t>(posizione)).key;
    if (chiave.front() == 'c')
        return {NodoPerMese::Genere::soggetto, toInt32(chiave.substr(1)), 0};
    if (chiave.front() == 'm')
        return {NodoPerMese::Genere::mese, toInt32(chiave.substr(3)), toInt32(chiave.substr(1, 2))};
    return {};
}

std::optional<NodoPerMese> AlberoPerMese::scelto() const
{
    return tvwClienti.selected() < 0 ? std::nullopt : std::optional(nodo(tvwClienti.selected()));
}

void AlberoPerMese::racconta(int posizione)
{
    const NodoPerMese scelto = nodo(posizione);
    const auto& nodi = tvwClienti.nodes();
    const TreeNode& riga = nodi[static_cast<std::size_t>(posizione)];
    if (scelto.genere == NodoPerMese::Genere::soggetto) {
        lblCliente.setCaption(regole_.etichetta + riga.text + " - Mese: TUTTI");
    } else if (scelto.genere == NodoPerMese::Genere::mese) {
        lblCliente.setCaption(regole_.etichetta + nodi[static_cast<std::size_t>(riga.parent)].text +
                              " - Mese: " + upper(riga.text));
    }
}

void AlberoPerMese::scegli(int posizione)
{
    racconta(posizione);
    if (nodoScelto)
        nodoScelto(nodo(posizione));
}

Layout AlberoPerMese::layout(Layout elenco)
{
    using namespace layout;
    return row({of(tvwClienti), grow(column({of(lblCliente), grow(std::move(elenco))}), 2)});
}

}  // namespace bravona
