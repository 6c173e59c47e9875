#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "documents/ArchivioDocumenti.h"
#include "documents/Emissione.h"
#include "documents/TipoDocumento.h"
#include "documents/clsCalcoli.h"
#include "documents/derivazioni.h"
#include "documents/frmAnnullamento.h"
#include "duedates/Rate.h"
#include "platform/values/Numeri.h"
#include "support/ProgrammaDiProva.h"

// Hundreds of documents issued, changed, derived and cancelled in a random order, against plain arithmetic in cents.
namespace bravona {
namespace {

constexpr std::int32_t anno = 2004;
const std::map<std::string, int> aliquote{{"A", 20}, {"B", 4}, {"E", 0}};
const std::map<std::int32_t, int> ratePerMetodo{{0, 0}, {5, 3}, {6, 1}};

struct RigaAttesa {
    std::string codice, descrizione, iva;
    int quantita = 0;  // 0: a comment
    int centesimi = 0;

    [[nodiscard]] std::int64_t totale() const { return std::int64_t{quantita} * centesimi; }
};

struct Atteso {
    std::int16_t tipoDocumento = 0;
    std::int32_t id = 0, numero = 0, registro = 1, cliente = 7, metodo = 0;
    Date data;
    std::vector<RigaAttesa> righe;
    std::map<std::string, std::int64_t> imponibili;  // cents, by VAT code
    std::int64_t netto = 0, imposta = 0;             // cents
    int rate = 0;
    std::int64_t rata = 0;
    std::vector<std::int32_t> bolle;  // that it was made from
    std::int32_t fattura = 0;         // number of the invoice made from it
    Date dataFattura;

    [[nodiscard]] std::string tabella() const { return tabelleDocumento(tipoDocumento).testata; }

    void somma()
    {
        imponibili.clear();
        netto = 0;
        std::int64_t decimillesimi = 0;
        for (const RigaAttesa& riga : righe) {
            if (riga.quantita == 0)
                continue;
            netto += riga.totale();
            imponibili[riga.iva] += riga.totale();
            decimillesimi += riga.totale() * aliquote.at(riga.iva);
        }
        imposta = (decimillesimi + 50) / 100;  // with these rates never halfway
    }
    void pianifica()
    {
        rate = ratePerMetodo.at(metodo);
        rata = rate == 0 ? 0 : (2 * (netto + imposta) + rate) / (2 * rate);
    }
};

Currency euro(std::int64_t centesimi)
{
    return Currency::fromTenThousandths(centesimi * 100);
}

bool fra(const std::vector<std::int32_t>& chiavi, std::int32_t chiave)
{
    return std::ranges::find(chiavi, chiave) != chiavi.end();
}

class Vita {
public:
    explicit Vita(unsigned seme) : caso_(seme)
    {
        cn_.executeNative("PRAGMA synchronous = OFF");  // nobody pulls the plug here
        cn_.execute("INSERT INTO TabellaCodiciIva (IDCodiceIva, CodiceIva, AliquotaIva, Descrizione) VALUES "
                    "(11, 'B', 4, 'Minima')");
        cn_.execute("INSERT INTO ModalitaPagamento (IDmodalitaPagamento, ModalitaPagamento, [GG-1], [DF-FM]) VALUES "
                    "(6, 'Contanti', 0, 'DF')");
        cn_.execute("INSERT INTO Clienti (IDCliente, Cliente, Tipo, IDpagamento, IDListino) VALUES "
                    "(8, 'Verdi', 'C', 6, 1)");
        programma_.sessione().TabellaIva->Refresh();
        programma_.sessione().schermate().get("frmAnnullamento").show();
        for (const std::int32_t chiave : {2, 5, 9, 300})
            vecchioPreventivo(chiave);
    }

    void passo()
    {
        switch (caso(0, 9)) {
        case 0:
        case 1:
        case 2:
            emetti(tipo::ddt);
            break;
        case 3:
            emetti(static_cast<std::int16_t>(caso(tipo::fattura, tipo::notaDebito)));
            break;
        case 4:
            fattura();
            break;
        case 5:
            daPreventivo(tipo::fattura);
            break;
        case 6:
            daPreventivo(tipo::ddt);
            break;
        case 7:
        case 8:
            modifica();
            break;
        default:
            annulla();
            break;
        }
    }

    void controllaTutto()
    {
        std::map<std::string, std::int64_t> righe;
        std::int64_t rate = 0;
        std::int64_t legami = 0;
        std::map<std::string, std::int64_t> testate;
        for (const Atteso& atteso : attesi_) {
            controlla(atteso);
            const TabelleDocumento tabelle = tabelleDocumento(atteso.tipoDocumento);
            ++testate[tabelle.testata];
            righe[tabelle.dettagli] += std::ssize(atteso.righe);
            rate += atteso.rate;
            legami += std::ssize(atteso.bolle);
            const bool conRate = atteso.tipoDocumento == tipo::proforma && atteso.rate > 0;
            EXPECT_FALSE(conRate && fatturaConChiave(atteso.id)) << "instalments of two under " << atteso.id;
        }
        // Each document has what is its own: nothing else may be there.
        for (const auto& [tabella, quante] : testate)
            EXPECT_EQ(conta(tabella), quante) << tabella;
        for (const auto& [tabella, quante] : righe)
            EXPECT_EQ(conta(tabella), quante) << tabella;
        EXPECT_EQ(conta("Scadenzario"), rate);
        EXPECT_EQ(conta("Fatture_RiferimentoBolle"), legami);
    }

    [[nodiscard]] std::map<std::string, int> fatti() const { return fatti_; }

private:
    int caso(int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso_); }

    // Any document that is so; none, when there is none.
    template <class Quale>
    Atteso* scegli(Quale quale)
    {
        std::vector<Atteso*> possibili;
        for (Atteso& atteso : attesi_) {
            if (quale(atteso))
                possibili.push_back(&atteso);
        }
        return possibili.empty() ? nullptr
                                 : possibili[static_cast<std::size_t>(caso(0, static_cast<int>(possibili.size()) - 1))];
    }

    std::vector<RigaAttesa> righeACaso(std::int16_t tipoDocumento)
    {
        std::vector<RigaAttesa> righe;
        for (int i = caso(1, 6); i > 0; --i) {
            const int genere = caso(0, 9);
            if (genere < 8)
                righe.push_back(
                    {"A1", "Vite", std::next(aliquote.begin(), caso(0, 2))->first, caso(1, 40), caso(1, 99'999)});
            else if (tipoDocumento == tipo::ddt)
                righe.push_back({genere == 8 ? righe::codiceSoloDDT : righe::codiceTesto, "al piano", "", 0, 0});
            else
                righe.push_back({righe::codiceTesto, "al piano", "", 0, 0});
        }
        if (std::ranges::none_of(righe, [](const RigaAttesa& riga) { return riga.quantita > 0; }))
            righe.push_back({"B1", "Dado", "A", 1, 1});
        return righe;
    }

    static std::vector<RigaDocumento> daScrivere(const std::vector<RigaAttesa>& attese)
    {
        std::vector<RigaDocumento> scritte;
        for (const RigaAttesa& attesa : attese) {
            if (attesa.quantita == 0) {
                scritte.push_back(rigaCommento(attesa.codice, attesa.descrizione));
                continue;
            }
            RigaDocumento& riga = scritte.emplace_back();
            riga.CodiceArticolo = attesa.codice;
            riga.Descrizione = attesa.descrizione;
            riga.UnitaMisura = "Pz";
            riga.Quantita = attesa.quantita;
            riga.PrezzoUnitario = euro(attesa.centesimi);
            riga.TotaleRiga = aCentesimi(CalcolaTotaleRiga(riga.Quantita, riga.PrezzoUnitario, riga.Sconti).totale);
            riga.CodiceIva = attesa.iva;
        }
        return scritte;
    }

    // With the totals that a screen would put into it.
    Documento componi(const Atteso& atteso, TestataDocumento testata)
    {
        Documento documento{std::move(testata), daScrivere(atteso.righe), {}};
        clsCalcoli calcoli(*programma_.sessione().TabellaIva);
        calcoli.Calcola(documento.righe);
        calcoli.riporta(documento.testata);
        return documento;
    }

    static TestataDocumento testataDi(const Atteso& atteso)
    {
        TestataDocumento testata;
        testata.NumeroDocumento = atteso.numero;
        testata.NumeroRegistro = atteso.registro;
        testata.AnnoDocumento = anno;
        testata.DataDocumento = atteso.data;
        testata.IDCliente = atteso.cliente;
        testata.IDmodalitaPagamento = atteso.metodo;
        if (atteso.tipoDocumento == tipo::ddt) {
            testata.Tipo = "V";
            testata.EmessaFattura = "N";
        } else {
            testata.TipoDocumento = atteso.tipoDocumento;
            testata.RiferimentoBolla = "N";
        }
        return testata;
    }

    std::int32_t prossimoNumero(const Atteso& nuovo) const
    {
        std::int32_t massimo = 0;
        for (const Atteso& atteso : attesi_) {
            if (atteso.tabella() == nuovo.tabella() && atteso.registro == nuovo.registro)
                massimo = std::max(massimo, atteso.numero);
        }
        return massimo + 1;
    }

    frmAnnullamento& schermata()
    {
        return dynamic_cast<frmAnnullamento&>(programma_.sessione().schermate().get("frmAnnullamento"));
    }

    // Issues the expected document as the screens do; its number and key are told by the archive.
    void emetti(Atteso atteso, const char* nome, const std::function<Documento(const NuovoDocumento&)>& deriva,
                const std::function<void(const TestataDocumento&)>& collegamento = nullptr)
    {
        atteso.numero = prossimoNumero(atteso);
        schermata().registro.cmbRegistro.setListIndex(atteso.registro - 1);
        bool emesso = false;
        programma_.utente.answer(MsgAnswer::no);
        bravona::emetti(programma_.sessione(), schermata(), schermata().registro,
                        {.tipoDocumento = atteso.tipoDocumento,
                         .routine = "",
                         .modulo = "",
                         .titolo = "",
                         .emesso = "",
                         .domanda = "",
                         .deriva = deriva,
                         .collega =
                             [&](const TestataDocumento& testata) {
                                 atteso.id = testata.IDDocumento;
                                 EXPECT_EQ(testata.NumeroDocumento, atteso.numero);
                                 if (collegamento)
                                     collegamento(testata);
                             },
                         .emessoOra = [&] { emesso = true; }});
        ASSERT_TRUE(emesso) << programma_.utente.lastBox().text;
        ++fatti_[nome];
        attesi_.push_back(atteso);
        controlla(atteso);
    }

    void emetti(std::int16_t tipoDocumento)
    {
        Atteso atteso;
        atteso.tipoDocumento = tipoDocumento;
        atteso.registro = caso(1, 2);
        atteso.cliente = caso(7, 8);
        atteso.metodo = caso(0, 5) == 0 ? 0 : caso(5, 6);
        atteso.data = Date::fromYmd(anno, caso(1, 12), caso(1, 28)).value();
        atteso.righe = righeACaso(tipoDocumento);
        atteso.somma();
        if (conScadenze(tipoDocumento))
            atteso.pianifica();
        emetti(atteso, "issued", [&](const NuovoDocumento& nuovo) {
            TestataDocumento testata = testataDi(atteso);
            testata.NumeroDocumento = nuovo.numero;
            return componi(atteso, std::move(testata));
        });
    }

    std::vector<Rata> piano(const TestataDocumento& testata)
    {
        return calcolaPiano(cn_, testata.IDmodalitaPagamento, testata.DataDocumento, testata.NumeroRegistro.value(),
                            testata.TotaleDocumento);
    }

    // One from before quotations counted their keys apart.
    void vecchioPreventivo(std::int32_t chiave)
    {
        Atteso atteso;
        atteso.tipoDocumento = tipo::proforma;
        atteso.id = chiave;
        atteso.metodo = 5;
        atteso.data = Date::fromYmd(anno, 1, 2).value();
        atteso.numero = prossimoNumero(atteso);
        atteso.righe = righeACaso(tipo::proforma);
        atteso.somma();
        const TabelleDocumento tabelle = tabelleDocumento(tipo::proforma);
        cn_.execute("INSERT INTO Proforma (IDFattura) VALUES (" + std::to_string(chiave) + ")");
        Documento documento = componi(atteso, testataDi(atteso));
        documento.testata.IDDocumento = chiave;
        riscriviTestata(cn_, tabelle, documento.testata);
        scriviRighe(cn_, tabelle, chiave, documento.righe);
        attesi_.push_back(atteso);
    }

    Documento leggi(const Atteso& atteso)
    {
        return leggiDocumento(cn_, atteso.tipoDocumento, atteso.numero, anno, atteso.registro).value();
    }

    void fattura()
    {
        const auto libera = [](const Atteso& atteso) {
            return atteso.tipoDocumento == tipo::ddt && atteso.fattura == 0;
        };
        const Atteso* prima = scegli(libera);
        if (prima == nullptr)
            return;
        Atteso attesa;
        attesa.tipoDocumento = tipo::fattura;
        attesa.registro = prima->registro;
        attesa.cliente = prima->cliente;
        attesa.data = programma_.orologio.today();
        std::vector<Atteso*> scelte;
        for (Atteso& altra : attesi_) {
            if (libera(altra) && altra.registro == attesa.registro && altra.cliente == attesa.cliente &&
                (&altra == prima || caso(0, 1) == 0)) {
                scelte.push_back(&altra);
            }
        }
        std::vector<Documento> documenti;
        for (const Atteso* bolla : scelte) {
            documenti.push_back(leggi(*bolla));
            attesa.bolle.push_back(bolla->id);
            attesa.metodo = bolla->metodo;
            attesa.netto += bolla->netto;
            attesa.imposta += bolla->imposta;
            for (const auto& [codice, imponibile] : bolla->imponibili)
                attesa.imponibili[codice] += imponibile;
            attesa.righe.push_back(
                {" ", "Riferimento D.D.T. n." + std::to_string(bolla->numero) + " del " + bolla->data.text(), "", 0,
                 0});
            for (RigaAttesa riga : bolla->righe) {
                if (riga.quantita == 0 && riga.codice == "***D")
                    continue;
                if (riga.codice == "***")
                    riga.codice = "***F";
                attesa.righe.push_back(riga);
            }
        }
        attesa.pianifica();
        const std::int32_t numero = prossimoNumero(attesa);
        for (Atteso* bolla : scelte) {
            bolla->fattura = numero;
            bolla->dataFattura = attesa.data;
        }
        const std::vector<std::int32_t> marcate = attesa.bolle;
        emetti(
            attesa, "invoiced", [&](const NuovoDocumento& nuova) { return fatturaDaDDT(documenti, nuova); },
            [&](const TestataDocumento& testata) { collega(cn_, testata, documenti); });
        controllaBolle(marcate);
    }

    void daPreventivo(std::int16_t tipoDocumento)
    {
        const Atteso* preventivo = scegli([](const Atteso& atteso) { return atteso.tipoDocumento == tipo::proforma; });
        if (preventivo == nullptr)
            return;
        Atteso atteso = *preventivo;
        atteso.tipoDocumento = tipoDocumento;
        atteso.data = programma_.orologio.today();
        atteso.rate = 0;
        if (tipoDocumento == tipo::ddt)
            atteso.metodo = 0;
        else
            atteso.pianifica();
        const Documento proforma = leggi(*preventivo);
        emetti(atteso, tipoDocumento == tipo::ddt ? "DDT of a quotation" : "invoice of a quotation",
               [&](const NuovoDocumento& nuovo) {
                   return tipoDocumento == tipo::ddt ? ddtDaProforma(proforma, nuovo)
                                                     : fatturaDaProforma(proforma, nuovo);
               });
    }

    // An invoice of transport documents gets other prices, any other document other rows.
    void modifica()
    {
        Atteso* atteso = scegli([](const Atteso& quale) { return quale.fattura == 0; });
        if (atteso->bolle.empty()) {
            atteso->righe = righeACaso(atteso->tipoDocumento);
        } else {
            for (RigaAttesa& riga : atteso->righe)
                riga.centesimi = riga.quantita == 0 ? 0 : caso(1, 99'999);
        }
        atteso->somma();
        const TabelleDocumento tabelle = tabelleDocumento(atteso->tipoDocumento);
        Transaction transazione(cn_);
        Documento documento = componi(*atteso, leggi(*atteso).testata);
        std::int32_t& id = documento.testata.IDDocumento;
        if (atteso->tipoDocumento == tipo::proforma) {
            const bool contesa = fatturaConChiave(atteso->id);
            id = separaDalleFatture(cn_, id);
            EXPECT_EQ(id != atteso->id, contesa);
            atteso->id = id;
        }
        riscriviTestata(cn_, tabelle, documento.testata);
        riscriviRighe(cn_, tabelle, id, documento.righe);
        if (atteso->tipoDocumento != tipo::ddt) {  // a quotation has instalments once it was changed
            atteso->pianifica();
            riscriviRate(cn_, id, atteso->registro, piano(documento.testata));
        }
        transazione.commit();
        ++fatti_["changed"];
        controlla(*atteso);
    }

    void annulla()
    {
        const Atteso* scelto = scegli([](const Atteso& atteso) { return atteso.tipoDocumento != tipo::proforma; });
        if (scelto == nullptr)
            return;
        const bool bolla = scelto->tipoDocumento == tipo::ddt;
        programma_.utente.click(schermata().optTipo[bolla ? 0 : 1]);
        schermata().registro.cmbRegistro.setListIndex(scelto->registro - 1);
        schermata().campoNumero.txtNumeroDocumento.setText(std::to_string(scelto->numero));
        if (scelto->fattura == 0)
            programma_.utente.answer(MsgAnswer::yes);
        programma_.utente.click(schermata().cmdShow);
        const std::string detto = programma_.utente.lastBox().text;
        if (scelto->fattura != 0) {
            EXPECT_EQ(detto, "Impossibile annullare questo documento in quanto esistono documenti figli!");
            ++fatti_["refused"];
            controlla(*scelto);
            return;
        }
        ASSERT_EQ(detto, "Documento annullato!");
        ++fatti_["cancelled"];
        EXPECT_FALSE(leggiDocumento(cn_, scelto->tipoDocumento, scelto->numero, anno, scelto->registro));
        const std::vector<std::int32_t> liberate = scelto->bolle;
        for (Atteso& altro : attesi_) {
            if (altro.tipoDocumento == tipo::ddt && fra(liberate, altro.id))
                altro.fattura = 0;
        }
        attesi_.erase(attesi_.begin() + (scelto - attesi_.data()));
        controllaBolle(liberate);
    }

    bool fatturaConChiave(std::int32_t chiave) const
    {
        return std::ranges::any_of(
            attesi_, [&](const Atteso& atteso) { return atteso.tabella() == "Fatture" && atteso.id == chiave; });
    }

    std::int64_t conta(const std::string& tabella)
    {
        return std::stoll(programma_.valore("SELECT COUNT(*) FROM " + tabella));
    }

    void controllaBolle(const std::vector<std::int32_t>& chiavi)
    {
        for (const Atteso& atteso : attesi_) {
            if (atteso.tipoDocumento == tipo::ddt && fra(chiavi, atteso.id))
                controlla(atteso);
        }
    }

    void controlla(const Atteso& atteso)
    {
        SCOPED_TRACE(atteso.tabella() + " " + std::to_string(atteso.registro) + "/" + std::to_string(atteso.numero));
        const std::optional<Documento> letto =
            leggiDocumento(cn_, atteso.tipoDocumento, atteso.numero, anno, atteso.registro);
        ASSERT_TRUE(letto);
        const TestataDocumento& testata = letto->testata;
        EXPECT_EQ(testata.IDDocumento, atteso.id);
        EXPECT_EQ(testata.IDCliente, atteso.cliente);
        EXPECT_EQ(testata.DataDocumento, atteso.data);
        EXPECT_EQ(testata.TotaleIvaEsclusa, euro(atteso.netto));
        EXPECT_EQ(testata.ImportoTotaleIva, euro(atteso.imposta));
        EXPECT_EQ(testata.TotaleDocumento, euro(atteso.netto + atteso.imposta));
        std::map<std::string, std::int64_t> gruppi;
        for (const GruppoIVA& gruppo : testata.Gruppi) {
            if (gruppo.Codice.empty())
                continue;
            gruppi[gruppo.Codice] = gruppo.Imponibile.tenThousandths() / 100;
            EXPECT_EQ(gruppo.ImportoIva.tenThousandths(), gruppi[gruppo.Codice] * aliquote.at(gruppo.Codice));
        }
        EXPECT_EQ(gruppi, atteso.imponibili);
        ASSERT_EQ(letto->righe.size(), atteso.righe.size());
        int conImporto = 0;
        for (std::size_t i = 0; i < atteso.righe.size(); ++i) {
            const RigaAttesa& attesa = atteso.righe[i];
            const RigaDocumento& riga = letto->righe[i];
            conImporto += attesa.quantita > 0 ? 1 : 0;
            EXPECT_EQ(riga.CodiceArticolo, attesa.codice);
            EXPECT_EQ(riga.Descrizione, attesa.descrizione);
            EXPECT_EQ(riga.Quantita, attesa.quantita);
            EXPECT_EQ(riga.PrezzoUnitario, euro(attesa.centesimi));
            EXPECT_EQ(riga.TotaleRiga, euro(attesa.totale()));
        }
        EXPECT_EQ(testata.NumeroDettagli, conImporto);
        EXPECT_EQ(std::ssize(letto->rate), atteso.rate);
        for (const Rata& rata : letto->rate)
            EXPECT_EQ(atteso.registro == 1 ? rata.Avere : rata.Dare, euro(atteso.rata));
        if (atteso.tipoDocumento == tipo::ddt) {
            EXPECT_EQ(testata.fatturato(), atteso.fattura != 0);
            EXPECT_EQ(testata.NumeroFattura.value_or(0), atteso.fattura);
            EXPECT_EQ(testata.DataFattura.value_or(""), atteso.fattura == 0 ? "" : atteso.dataFattura.text());
            return;
        }
        EXPECT_EQ(testata.daDDT(), !atteso.bolle.empty());
        if (atteso.tipoDocumento == tipo::proforma)
            return;
        std::vector<std::int32_t> bolle;
        for (Recordset legami = cn_.open("SELECT IDBolla FROM Fatture_RiferimentoBolle WHERE IDFattura=" +
                                         std::to_string(atteso.id) + " ORDER BY IDBolla");
             !legami.eof(); legami.moveNext()) {
            bolle.push_back(legami[0].asLong());
        }
        std::vector<std::int32_t> attese = atteso.bolle;
        std::ranges::sort(attese);
        EXPECT_EQ(bolle, attese);
    }

    std::mt19937 caso_;
    ProgrammaDiProva programma_;
    Connection& cn_ = programma_.sessione().cn;
    std::vector<Atteso> attesi_;
    std::map<std::string, int> fatti_;
};

TEST(LifeOfDocuments, HundredsInAnyOrderAgreeWithPlainArithmetic)
{
    constexpr int passi = 250;
    constexpr int traControlli = 25;
    for (unsigned seme = 1; seme <= 3; ++seme) {
        SCOPED_TRACE("seed " + std::to_string(seme));
        Vita vita(seme);
        for (int passo = 1; passo <= passi && !testing::Test::HasFailure(); ++passo) {
            SCOPED_TRACE("step " + std::to_string(passo));
            vita.passo();
            if (passo % traControlli == 0)
                vita.controllaTutto();
        }
        if (testing::Test::HasFailure())
            break;
        // The run is worth something only if it came to everything.
        for (const char* cosa : {"issued", "invoiced", "DDT of a quotation", "invoice of a quotation", "changed",
                                 "cancelled", "refused"}) {
            EXPECT_GE(vita.fatti()[cosa], 3) << cosa;
        }
    }
}

}  // namespace
}  // namespace bravona
