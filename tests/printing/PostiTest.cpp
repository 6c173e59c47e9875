#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "printing/arptDDTvb.h"
#include "printing/arptFatturaDifferitavb.h"
#include "printing/arptFatturaImmediatavb.h"
#include "printing/arptFatturaProformavb.h"
#include "support/DocumentoDiProva.h"

// A document whose every column holds its own name is laid out in each design, and each value is looked for where its
// caption leads the eye: two captions, two columns or two places exchanged do not pass.
namespace bravona {
namespace {

// What a column holds. A figure behind a name goes before it, so that a value cut to its column still tells it.
std::string nomeProprio(const std::string& colonna)
{
    const char ultima = colonna.back();
    if (colonna == "TotaleDocumento") {
        return "1111,11";  // the one that the prints compute with
    }
    // Columns of two letters.
    if (colonna == "UnitaMisura") {
        return "UM";
    }
    if (colonna == "CodiceIva") {
        return "CI";
    }
    return ultima >= '1' && ultima <= '9' ? ultima + colonna.substr(0, colonna.size() - 1) : colonna + "=";
}

struct Testo {
    const TextPrimitive* testo;
    [[nodiscard]] int mezzo() const { return testo->x + testo->width / 2; }
    [[nodiscard]] int basso() const { return testo->y + testo->height; }
};

class Foglio {
public:
    explicit Foglio(const Page& page)
    {
        for (const Primitive& primitive : page.primitives) {
            if (const auto* testo = std::get_if<TextPrimitive>(&primitive);
                testo != nullptr && !testo->text.empty() && testo->detailRow <= 0) {
                testi_.push_back({testo});
            }
        }
    }

    [[nodiscard]] const TextPrimitive* didascalia(const std::string& testo) const
    {
        const auto trovato =
            std::find_if(testi_.begin(), testi_.end(), [&](const Testo& t) { return t.testo->text == testo; });
        return trovato == testi_.end() ? nullptr : trovato->testo;
    }

    // The texts in the columns of the page under it, from the nearest line on, from the left.
    [[nodiscard]] std::vector<std::string> sotto(const TextPrimitive& didascalia, std::size_t quanti) const
    {
        std::vector<Testo> trovati;
        for (const Testo& t : testi_) {
            if (t.mezzo() > didascalia.x && t.mezzo() < didascalia.x + didascalia.width &&
                t.testo->y + t.testo->height / 2 > didascalia.y + didascalia.height) {
                trovati.push_back(t);
            }
        }
        return nomi(std::move(trovati), quanti, [](const Testo& t) { return std::pair(t.testo->y, t.testo->x); });
    }

    // The texts on its line, to its right.
    [[nodiscard]] std::vector<std::string> destra(const TextPrimitive& didascalia, std::size_t quanti) const
    {
        std::vector<Testo> trovati;
        const int riga = didascalia.y + didascalia.height / 2;
        for (const Testo& t : testi_) {
            if (t.testo->x >= didascalia.x + didascalia.width && t.testo->y < riga && t.basso() > riga) {
                trovati.push_back(t);
            }
        }
        return nomi(std::move(trovati), quanti, [](const Testo& t) { return std::pair(t.testo->x, t.testo->y); });
    }

private:
    template <typename Ordine>
    static std::vector<std::string> nomi(std::vector<Testo> trovati, std::size_t quanti, Ordine ordine)
    {
        std::sort(trovati.begin(), trovati.end(),
                  [&](const Testo& a, const Testo& b) { return ordine(a) < ordine(b); });
        std::vector<std::string> risultato;
        for (const Testo& t : trovati) {
            if (risultato.size() < quanti) {
                risultato.push_back(t.testo->text);
            }
        }
        return risultato;
    }

    std::vector<Testo> testi_;
};

// Equal, or its beginning where the column was too narrow for it.
bool dice(const std::string& stampato, const std::string& atteso)
{
    static const std::string puntini = "…";
    if (stampato.size() > puntini.size() + 1 && stampato.ends_with(puntini)) {
        return atteso.starts_with(stampato.substr(0, stampato.size() - puntini.size()));
    }
    return stampato == atteso;
}

enum class Dove { sotto, destra };
struct Voce {
    const char* didascalia;
    Dove dove;
    std::vector<std::string> valori;  // column names; what begins with '=' is the text itself
};

const std::vector<Voce> ditta{
    {"Tel. :", Dove::destra, {"=011 7701234"}},
    {"Fax:", Dove::destra, {"=011 7701235"}},
    {"P. IVA :", Dove::destra, {"=07654321001"}},
    {"Prov.:", Dove::destra, {"=TO"}},
    {"Colorificio Bianchi S.r.l.", Dove::sotto, {"=Vernici e ferramenta", "=Corso Francia, 214"}},
    {"10146 Torino", Dove::destra, {"=Prov.:", "=TO"}},
};
const std::vector<Voce> cliente{
    {"Spett.", Dove::sotto, {}},
    {"Cliente=", Dove::sotto, {"ClienteSecondaRiga", "Clienti.Indirizzo", "=10100 Torino (TO)"}},
    {"Destinazione merce:", Dove::sotto, {"=Via Roma, 2", "=10015 Ivrea (TO)"}},
    {"Partita IVA - Codice Fiscale", Dove::sotto, {"PartitaIva", "CodiceFiscale"}},
    {"Data", Dove::sotto, {"DataF"}},
};
const std::vector<Voce> trasporto{
    {"Trasporto a cura", Dove::sotto, {"SpedizioneAMezzo"}},
    {"Porto", Dove::sotto, {"Porto"}},
    {"Causale trasporto", Dove::sotto, {"CausaleTrasporto"}},
    {"Aspetto beni", Dove::sotto, {"ColliAspetto"}},
    {"N. colli", Dove::sotto, {"ColliNumero"}},
    {"Peso (kg)", Dove::sotto, {"Peso"}},
};
const std::vector<Voce> articoli{
    {" Codice articolo", Dove::sotto, {"CodiceArticolo"}},
    {" Descrizione articolo", Dove::sotto, {"Descrizione"}},
    {"UM", Dove::sotto, {"UnitaMisura"}},
};
const std::vector<Voce> conti{
    {"Modalità pagamento", Dove::sotto, {"ModalitaPagamento"}},
    {"Banca d'appoggio", Dove::sotto, {"Banca"}},
    {"Sconti %", Dove::sotto, {"Sconto1", "Sconto2", "Sconto3"}},
    {"Iva", Dove::sotto, {"CodiceIva"}},
    {"C.IVA", Dove::sotto, {"CodiceIva1", "CodiceIva2", "CodiceIva3", "CodiceIva4", "CodiceIva5"}},
    {"Descrizione codice IVA",
     Dove::sotto,
     {"Descrizioneiva1", "Descrizioneiva2", "Descrizioneiva3", "Descrizioneiva4", "Descrizioneiva5"}},
    {"IVA %", Dove::sotto, {"AliquotaIva1", "AliquotaIva2", "AliquotaIva3", "AliquotaIva4", "AliquotaIva5"}},
    {"Imponibile € ",
     Dove::sotto,
     {"ImponibileIva1", "ImponibileIva2", "ImponibileIva3", "ImponibileIva4", "ImponibileIva5"}},
    {"Importo IVA € ", Dove::sotto, {"ImportoIva1", "ImportoIva2", "ImportoIva3", "ImportoIva4", "ImportoIva5"}},
    {"Imponibile", Dove::destra, {"TotaleIvaEsclusa"}},
    {"Totale IVA", Dove::destra, {"ImportoTotaleIva"}},
    {"Totale fattura", Dove::destra, {"=1.111,11"}},
    {"(Totale Lire)", Dove::destra, {"=2.151.409"}},
};

struct Disegno {
    const char* nome;
    Report (*disegna)();
    int righe;
    std::vector<std::vector<Voce>> voci;
};

class Posti : public testing::TestWithParam<Disegno> {};

TEST_P(Posti, leadFromEachCaptionToItsValue)
{
    DocumentoDiProva documento;
    documento.aliquote = 5;
    documento.altri = documento.colonne();
    for (auto& [colonna, valore] : documento.altri) {
        valore = nomeProprio(colonna);
    }
    const Pages pagine = pagineDi(GetParam().disegna(), GetParam().righe, documento);
    ASSERT_EQ(pagine.pages.size(), 1U);
    const Foglio foglio(pagine.pages[0]);
    for (const std::vector<Voce>& gruppo : GetParam().voci) {
        for (const Voce& voce : gruppo) {
            const TextPrimitive* didascalia = foglio.didascalia(voce.didascalia);
            ASSERT_NE(didascalia, nullptr) << voce.didascalia;
            const std::size_t quanti = voce.valori.size();
            const std::vector<std::string> trovati =
                voce.dove == Dove::sotto ? foglio.sotto(*didascalia, quanti) : foglio.destra(*didascalia, quanti);
            ASSERT_EQ(trovati.size(), quanti) << voce.didascalia;
            for (std::size_t i = 0; i < quanti; ++i) {
                const std::string& valore = voce.valori[i];
                const std::string atteso = valore.front() == '=' ? valore.substr(1) : nomeProprio(valore);
                EXPECT_TRUE(dice(trovati[i], atteso))
                    << voce.didascalia << ": expected " << atteso << ", there was " << trovati[i];
            }
        }
    }
}

std::vector<Voce> colonne(const char* quantita, const char* prezzo, const char* totale, const char* numero)
{
    return {{quantita, Dove::sotto, {"Quantita"}},
            {prezzo, Dove::sotto, {"PrezzoUnitario"}},
            {totale, Dove::sotto, {"TotaleRiga"}},
            {numero, Dove::sotto, {"=127"}}};
}

INSTANTIATE_TEST_SUITE_P(
    Table, Posti,
    testing::Values(
        Disegno{"arptDDTvb",
                arptDDTvb,
                righeDDT,
                {ditta,
                 cliente,
                 articoli,
                 trasporto,
                 {{"QT", Dove::sotto, {"Quantita"}}, {"N. Documento", Dove::sotto, {"=127"}}}}},
        Disegno{
            "arptFatturaImmediatavb",
            arptFatturaImmediatavb,
            righeFatturaImmediata,
            {ditta, cliente, articoli, trasporto, conti, colonne("Quantità", " Prezzo", "Totale riga ", "N. Fattura")}},
        Disegno{"arptFatturaDifferitavb",
                arptFatturaDifferitavb,
                righeFatturaDifferita,
                {ditta, cliente, articoli, conti, colonne("QT", " Prezzo €", "Totale riga € ", "N. Fattura")}},
        Disegno{"arptFatturaProformavb",
                arptFatturaProformavb,
                righeFatturaProforma,
                {ditta, cliente, articoli, conti, colonne("QT", " Prezzo €", "Totale riga € ", "N. Fattura")}}),
    [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace bravona
