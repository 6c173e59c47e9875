#include "popola_archivio/Popolatore.h"

#include <algorithm>
#include <map>

#include "Anagrafiche.h"
#include "Caso.h"
#include "documents/TipoDocumento.h"
#include "documents/clsCalcoli.h"
#include "documents/modRegistrazione.h"
#include "duedates/modScadenze.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

struct RigaPopolata {
    ArticoloPopolato* articolo = nullptr;  // none: a comment row
    std::string codice, testo, quantita, prezzo, totale;
    std::array<int, 3> sconti{};
    std::int32_t idIva = 0;
    std::string codiceIva;
    std::string tag;
};

class RigheLette final : public FonteRighe {
public:
    explicit RigheLette(const std::vector<RigaPopolata>& righe) : righe_(righe) {}
    [[nodiscard]] std::size_t numeroRighe() const override { return righe_.size(); }
    [[nodiscard]] const std::string& tagRiga(std::size_t riga) const override { return righe_[riga].tag; }
    [[nodiscard]] const std::string& totaleRiga(std::size_t riga) const override { return righe_[riga].totale; }
    [[nodiscard]] const std::string& codiceIvaRiga(std::size_t riga) const override { return righe_[riga].codiceIva; }

private:
    const std::vector<RigaPopolata>& righe_;
};

// A transport document waiting for its invoice.
struct BollaAperta {
    std::int32_t id = 0;
    std::int32_t numero = 0;
    Date data;
    std::size_t cliente = 0;
    std::vector<RigaPopolata> righe;
};

class Popolatore {
public:
    Popolatore(Connection& cn, int documenti, std::uint64_t seme)
        : cn_(cn),
          documenti_(documenti),
          caso_(seme),
          iva_(cn),
          calcoli_(iva_)
    {}

    void esegui()
    {
        Transaction transazione(cn_);
        Recordset archivi = cn_.openTable("Archivi");
        for (int anno = primoAnnoPopolato; anno <= ultimoAnnoPopolato; ++anno) {
            archivi.addNew();
            archivi["AnnoArchivio"] = anno;
            archivi.update();
        }
        anagrafiche_ = popolaAnagrafiche(cn_, iva_, caso_, documenti_);
        apriTabelle();
        caricoIniziale();
        for (int i = 0; i < documenti_; ++i)
            documento(i);
        scriviGiacenze();
        transazione.commit();
    }

private:
    void apriTabelle()
    {
        for (const std::int16_t tipoDocumento : {tipo::ddt, tipo::fattura, tipo::proforma}) {
            const TabelleDocumento tabelle = tabelleDocumento(tipoDocumento);
            testate_[tabelle.testata] = cn_.openTable(tabelle.testata);
            dettagli_[tabelle.testata] = cn_.openTable(tabelle.dettagli);
        }
        scadenzario_ = cn_.openTable("Scadenzario");
        riferimenti_ = cn_.openTable("Fatture_RiferimentoBolle");
    }

    // Documents stand in the order of their dates, evenly over the years.
    [[nodiscard]] Date dataDi(int indice) const
    {
        const Date primo = Date::fromYmd(primoAnnoPopolato, 1, 2).value();
        const int giorni = Date::fromYmd(ultimoAnnoPopolato, 11, 20).value().dayNumber() - primo.dayNumber();
        return primo.addDays(
            static_cast<std::int32_t>(static_cast<std::int64_t>(giorni) * indice / std::max(1, documenti_ - 1)));
    }

    void documento(int indice)
    {
        const Date data = dataDi(indice);
        const std::size_t sorte = caso_.sotto(100);
        if (sorte < 27) {
            ddt(data);
        } else if (sorte < 37 && !bolle_.empty()) {
            fatturaDaBolle(data);
        } else {
            const std::int16_t tipoDocumento = sorte < 84   ? tipo::fattura
                                               : sorte < 92 ? tipo::proforma
                                               : sorte < 98 ? tipo::notaCredito
                                                            : tipo::notaDebito;
            const std::size_t cliente = caso_.sotto(anagrafiche_.clienti.size());
            const std::vector<RigaPopolata> righe = righeDi(anagrafiche_.clienti[cliente]);
            scrivi(tipoDocumento, data, cliente, righe, {});
            scarica(righe, data);
        }
    }

    [[nodiscard]] std::vector<RigaPopolata> righeDi(const ClientePopolato& cliente)
    {
        std::vector<RigaPopolata> righe;
        const int quante = caso_.unoSu(30) ? caso_.fra(30, 60) : caso_.fra(1, 8);
        std::vector<std::int32_t> codici;
        for (int i = 0; i < quante; ++i) {
            if (caso_.unoSu(14)) {
                righe.push_back(commento(caso_.unoSu(3) ? "***F" : "***",
                                         "Rif. Vs. ordine n. " + std::to_string(caso_.fra(1, 999))));
                continue;
            }
            ArticoloPopolato& articolo = anagrafiche_.articoli[caso_.sotto(anagrafiche_.articoli.size())];
            RigaPopolata riga;
            riga.articolo = &articolo;
            riga.tag = std::to_string(articolo.id);
            riga.codice = articolo.codice;
            riga.testo = articolo.descrizione;
            const IvaPopolata::Voce* voce = cliente.esente ? iva_.perCodice("E") : iva_.perId(articolo.idIva);
            riga.idIva = voce->id;
            riga.codiceIva = voce->codice.substr(0, 1);
            if (std::ranges::find(codici, voce->id) == codici.end()) {
                if (codici.size() == clsCalcoli::numeroGruppi)
                    continue;
                codici.push_back(voce->id);
            }
            riga.quantita = caso_.unoSu(6) ? std::to_string(caso_.fra(1, 30)) + ",5" : std::to_string(caso_.fra(1, 40));
            riga.prezzo =
                FormattaImporto(Currency::fromTenThousandths(articolo.prezzo * (99 + cliente.listino) / 100 * 100));
            riga.sconti = cliente.sconti;
            riga.totale = CalcolaTotaleRiga(riga.quantita, riga.prezzo,
                                            {double(riga.sconti[0]), double(riga.sconti[1]), double(riga.sconti[2])})
                              .totale;
            righe.push_back(std::move(riga));
        }
        if (std::ranges::none_of(righe, [](const RigaPopolata& riga) { return riga.articolo != nullptr; }))
            return righeDi(cliente);
        return righe;
    }

    static RigaPopolata commento(std::string codice, std::string testo)
    {
        RigaPopolata riga;
        riga.codice = std::move(codice);
        riga.testo = std::move(testo);
        riga.tag = "-5";
        return riga;
    }

    void ddt(Date data)
    {
        const std::size_t cliente = caso_.sotto(anagrafiche_.clienti.size());
        BollaAperta bolla;
        bolla.data = data;
        bolla.cliente = cliente;
        bolla.righe = righeDi(anagrafiche_.clienti[cliente]);
        bolla.id = scrivi(tipo::ddt, data, cliente, bolla.righe, {});
        bolla.numero = ultimoNumero_;
        scarica(bolla.righe, data);
        if (testate_["Bolle"]["Tipo"].text() == "V")
            bolle_.push_back(std::move(bolla));
        // Not all of them are invoiced.
        if (bolle_.size() > 60)
            bolle_.erase(bolle_.begin());
    }

    void fatturaDaBolle(Date data)
    {
        const std::size_t cliente = bolle_[caso_.sotto(bolle_.size())].cliente;
        std::vector<BollaAperta> scelte;
        std::erase_if(bolle_, [&](BollaAperta& bolla) {
            if (bolla.cliente != cliente || bolla.data.year() != data.year())
                return false;
            scelte.push_back(std::move(bolla));
            return true;
        });
        std::vector<RigaPopolata> righe;
        for (const BollaAperta& bolla : scelte) {
            righe.push_back(
                commento(" ", "Riferimento D.D.T. n." + std::to_string(bolla.numero) + " del " + bolla.data.text()));
            for (RigaPopolata riga : bolla.righe) {
                if (riga.codice == "***")
                    riga.codice = "***F";
                righe.push_back(std::move(riga));
            }
        }
        if (gruppiDi(righe) > clsCalcoli::numeroGruppi) {
            ddt(data);
            return;
        }
        const std::int32_t id = scrivi(tipo::fattura, data, cliente, righe, scelte);
        for (const BollaAperta& bolla : scelte) {
            riferimenti_.addNew();
            riferimenti_["IDFattura"] = id;
            riferimenti_["IDBolla"] = bolla.id;
            riferimenti_["NumeroBolla"] = bolla.numero;
            riferimenti_["DataBolla"] = bolla.data;
            riferimenti_.update();
            cn_.execute("UPDATE Bolle SET EmessaFattura='S', NumeroFattura=" + std::to_string(ultimoNumero_) +
                        ", DataFattura='" + data.text() + "' WHERE IDBolla=" + std::to_string(bolla.id));
        }
    }

    static int gruppiDi(const std::vector<RigaPopolata>& righe)
    {
        std::vector<std::int32_t> codici;
        for (const RigaPopolata& riga : righe) {
            if (riga.articolo != nullptr && std::ranges::find(codici, riga.idIva) == codici.end())
                codici.push_back(riga.idIva);
        }
        return static_cast<int>(codici.size());
    }

    std::int32_t scrivi(std::int16_t tipoDocumento, Date data, std::size_t indiceCliente,
                        const std::vector<RigaPopolata>& righe, const std::vector<BollaAperta>& bolle)
    {
        const TabelleDocumento tabelle = tabelleDocumento(tipoDocumento);
        const ClientePopolato& cliente = anagrafiche_.clienti[indiceCliente];
        const RigheLette lette(righe);
        calcoli_.setFormRiferimento(&lette);
        calcoli_.Calcola();
        const int registro = bolle.empty() && caso_.unoSu(12) ? 2 : 1;
        ultimoNumero_ = ++numeri_[{tabelle.testata, data.year() * 10 + registro}];
        const auto pagamento =
            std::ranges::find(anagrafiche_.pagamenti, cliente.pagamento, &Anagrafiche::Pagamento::id);

        Recordset& testata = testate_[tabelle.testata];
        testata.addNew();
        testata["NumeroDocumento"] = ultimoNumero_;
        testata["AnnoDocumento"] = data.year();
        testata["NumeroRegistro"] = registro;
        testata["DataDocumento"] = data;
        testata["IDCliente"] = cliente.id;
        testata["IDDestinazione"] =
            bolle.empty() && !cliente.destinazioni.empty() && caso_.unoSu(2) ? cliente.destinazioni[0] : 0;
        testata["ModalitaPagamento"] = pagamento->nome;
        testata["IDmodalitaPagamento"] = pagamento->id;
        testata["SpedizioneAMezzo"] = "Destinatario";
        testata["Porto"] = caso_.unoSu(3) ? "Assegnato" : "Franco";
        testata["ColliAspetto"] = "A vista";
        testata["ColliNumero"] = caso_.fra(1, 12);
        testata["Peso"] = caso_.fra(1, 400) / 2.0;
        testata["Sconto"] = 0;
        const double righeValide = calcoli_.NumeroRigheValide();
        testata["NumeroDettagli"] = righeValide;
        testata["TotaleIvaEsclusa"] = FormattaImporto(calcoli_.TotaleImportoVoci());
        testata["ImportoTotaleIva"] = FormattaImporto(calcoli_.TotaleImportoImposta());
        testata["TotaleDocumento"] = FormattaImporto(calcoli_.TotaleImportoDocumento());
        ScriviGruppiIva(testata, calcoli_);
        if (cliente.esente)
            testata["NoteEsenzioneIVA"] = cliente.noteEsenzione;
        if (tipoDocumento == tipo::ddt) {
            const bool reso = caso_.unoSu(20);
            testata["Tipo"] = reso ? "R" : "V";
            testata["CausaleTrasporto"] = reso ? "RESO" : "VENDITA";
            testata["EmessaFattura"] = "N";
        } else {
            testata["TipoDocumento"] = bolle.empty() ? tipoDocumento : 1;
            testata["RiferimentoBolla"] = bolle.empty() ? "N" : "S";
            testata["CausaleTrasporto"] = "Vendita";
        }
        testata.update();
        const std::int32_t id = testata[tabelle.chiave].asLong();
        for (const RigaPopolata& riga : righe)
            scriviRiga(tabelle, id, riga, cliente);
        if (tipoDocumento != tipo::ddt && tipoDocumento != tipo::proforma)
            scadenze(id, registro, data, *pagamento);
        return id;
    }

    void scriviRiga(const TabelleDocumento& tabelle, std::int32_t id, const RigaPopolata& riga,
                    const ClientePopolato& cliente)
    {
        Recordset& dettagli = dettagli_[tabelle.testata];
        dettagli.addNew();
        dettagli[tabelle.chiave] = id;
        dettagli["CodiceArticolo"] = riga.codice;
        dettagli["Descrizione"] = riga.testo;
        if (riga.articolo == nullptr) {
            dettagli["IDArticolo"] = -5;
            dettagli["UnitaMisura"] = " ";
            dettagli["CodiceIva"] = " ";
        } else {
            dettagli["IDArticolo"] = riga.articolo->id;
            dettagli["UnitaMisura"] = riga.articolo->unita;
            dettagli["Quantita"] = riga.quantita;
            dettagli["Listino"] = cliente.listino;
            dettagli["PrezzoUnitario"] = riga.prezzo;
            for (std::size_t i = 0; i < riga.sconti.size(); ++i)
                dettagli["Sconto" + std::to_string(i + 1)] = riga.sconti[i];
            dettagli["TotaleRiga"] = riga.totale;
            dettagli["CodiceIva"] = riga.codiceIva;
            dettagli["IDCodiceIva"] = riga.idIva;
        }
        dettagli.update();
    }

    void scadenze(std::int32_t id, int registro, Date data, const Anagrafiche::Pagamento& pagamento)
    {
        const int rate = static_cast<int>(pagamento.giorni.size());
        const Date riferimento = pagamento.fineMese ? FineMese(data) : data;
        const Date oggi = Date::fromYmd(ultimoAnnoPopolato, 11, 20).value();
        const std::string importo =
            FormattaImporto(toCurrency(FormattaImporto(calcoli_.TotaleImportoDocumento())).toDouble() / rate);
        for (const int giorni : pagamento.giorni) {
            const Date scadenza = riferimento.addDays(giorni);
            const bool saldata = scadenza < oggi && !caso_.unoSu(10);
            scadenzario_.addNew();
            scadenzario_["IDDocumento"] = id;
            scadenzario_["IDRegistro"] = registro;
            scadenzario_["Scadenza"] = scadenza;
            scadenzario_["Saldato"] = saldata ? "-1" : "0";
            scadenzario_[registro == 1 ? "avere" : "dare"] = importo;
            if (saldata)
                scadenzario_["Data_Pagamento"] = scadenza.addDays(caso_.fra(0, 20));
            scadenzario_.update();
        }
    }

    void scarica(const std::vector<RigaPopolata>& righe, Date data)
    {
        for (const RigaPopolata& riga : righe) {
            if (riga.articolo == nullptr)
                continue;
            ArticoloPopolato* articolo = riga.articolo;
            const double quantita = toDouble(riga.quantita);
            articolo->carico -= quantita;
            articolo->giacenza -= quantita;
            articolo->scarico += quantita;
            articolo->costoUltimo = toCurrency(riga.prezzo);
            articolo->scaricoValore += toCurrency(riga.totale);
            articolo->ultimoScarico = data.text();
        }
    }

    // Goods received: every article once in the first days, and a receipt for every twenty documents.
    void caricoIniziale()
    {
        Recordset movimenti = cn_.openTable("MovimentiMagazzino");
        Recordset dettagli = cn_.openTable("MovimentiMagazzino_Dettagli");
        std::size_t prossimo = 0;
        int numero = 0;
        const int ricevute = std::max(2, documenti_ / 20);
        for (int i = 0; i < ricevute || prossimo < anagrafiche_.articoli.size(); ++i) {
            const Date data =
                i < 20 ? Date::fromYmd(primoAnnoPopolato, 1, 2).value() : dataDi(std::min(i * 20, documenti_ - 1));
            const int righe = prossimo < anagrafiche_.articoli.size() ? 40 : caso_.fra(1, 10);
            movimenti.addNew();
            movimenti["NumeroDocumento"] = ++numero;
            movimenti["AnnoDocumento"] = data.year();
            movimenti["DataDocumento"] = data;
            movimenti["DataOperazione"] = data;
            movimenti["IDFornitore"] = anagrafiche_.fornitori[caso_.sotto(anagrafiche_.fornitori.size())];
            movimenti["NumeroDettagli"] = righe;
            movimenti.update();
            const std::int32_t id = movimenti["IDMovimenti"].asLong();
            for (int riga = 0; riga < righe; ++riga) {
                ArticoloPopolato& articolo = prossimo < anagrafiche_.articoli.size()
                                                 ? anagrafiche_.articoli[prossimo++]
                                                 : anagrafiche_.articoli[caso_.sotto(anagrafiche_.articoli.size())];
                carica(dettagli, id, articolo, data);
            }
        }
    }

    void carica(Recordset& dettagli, std::int32_t id, ArticoloPopolato& articolo, Date data)
    {
        const int quantita = caso_.fra(10, 2'000);
        const Currency costo = Currency::fromTenThousandths(articolo.prezzo * 60);
        const Currency totale = Currency::fromTenThousandths(costo.tenThousandths() * quantita);
        dettagli.addNew();
        dettagli["IDMovimenti"] = id;
        dettagli["IDArticolo"] = articolo.id;
        dettagli["CodiceArticolo"] = articolo.codice;
        dettagli["Descrizione"] = articolo.descrizione;
        dettagli["Quantita"] = quantita;
        dettagli["PrezzoUnitario"] = costo;
        dettagli["TotaleRiga"] = totale;
        dettagli["Aggiornato"] = "S";
        dettagli.update();
        articolo.carico += quantita;
        articolo.giacenza += quantita;
        articolo.costoUltimo = costo;
        articolo.caricoValore += totale;
        articolo.ultimoCarico = data.text();
    }

    void scriviGiacenze()
    {
        Recordset tabella = cn_.open("SELECT * FROM Articoli ORDER BY IDArticolo", OpenMode::updatable);
        for (const ArticoloPopolato& articolo : anagrafiche_.articoli) {
            tabella["DataPrimoCarico"] = articolo.ultimoCarico;
            tabella["DataUltimoCarico"] = articolo.ultimoCarico;
            tabella["DataUltimoScarico"] = articolo.ultimoScarico;
            tabella["Carico"] = articolo.carico;
            tabella["Scarico"] = articolo.scarico;
            tabella["Giacenza"] = articolo.giacenza;
            tabella["CostoUltimo"] = articolo.costoUltimo;
            tabella["CaricoValore"] = articolo.caricoValore;
            tabella["ScaricoValore"] = articolo.scaricoValore;
            if (articolo.carico != 0)
                tabella["CostoMedio"] = articolo.caricoValore.toDouble() / articolo.carico;
            tabella.update();
            tabella.moveNext();
        }
    }

    Connection& cn_;
    int documenti_;
    Caso caso_;
    IvaPopolata iva_;
    clsCalcoli calcoli_;
    Anagrafiche anagrafiche_;
    std::map<std::string, Recordset> testate_, dettagli_;
    Recordset scadenzario_, riferimenti_;
    std::map<std::pair<std::string, int>, std::int32_t> numeri_;
    std::int32_t ultimoNumero_ = 0;
    std::vector<BollaAperta> bolle_;
};

}  // namespace

void popolaArchivio(Connection& cn, int documenti, std::uint64_t seme)
{
    Popolatore(cn, documenti, seme).esegui();
}

}  // namespace bravona
