#include "popola_archivio/Popolatore.h"

#include <algorithm>
#include <map>

#include "Anagrafiche.h"
#include "Caso.h"
#include "documents/ArchivioDocumenti.h"
#include "documents/clsCalcoli.h"
#include "documents/derivazioni.h"
#include "duedates/modScadenze.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

// A transport document waiting for its invoice.
struct BollaAperta {
    Documento documento;
    std::size_t cliente = 0;
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
        for (ArticoloPopolato& articolo : anagrafiche_.articoli)
            articoli_[articolo.id] = &articolo;
        caricoIniziale();
        for (int i = 0; i < documenti_; ++i)
            documento(i);
        scriviGiacenze();
        transazione.commit();
    }

private:
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
            Documento nuovo = documentoDi(cliente, data);
            scrivi(tipoDocumento, nuovo, cliente);
            scaricaRighe(nuovo);
        }
    }

    [[nodiscard]] Documento documentoDi(std::size_t cliente, Date data)
    {
        Documento nuovo;
        nuovo.testata.DataDocumento = data;
        nuovo.righe = righeDi(anagrafiche_.clienti[cliente]);
        return nuovo;
    }

    [[nodiscard]] std::vector<RigaDocumento> righeDi(const ClientePopolato& cliente)
    {
        std::vector<RigaDocumento> righe;
        const int quante = caso_.unoSu(30) ? caso_.fra(30, 60) : caso_.fra(1, 8);
        std::vector<std::int32_t> codici;
        for (int i = 0; i < quante; ++i) {
            if (caso_.unoSu(14)) {
                std::string ordine = "Rif. Vs. ordine n. " + std::to_string(caso_.fra(1, 999));
                righe.push_back(
                    rigaCommento(caso_.unoSu(3) ? righe::codiceSoloFattura : righe::codiceTesto, std::move(ordine)));
                continue;
            }
            const ArticoloPopolato& articolo = anagrafiche_.articoli[caso_.sotto(anagrafiche_.articoli.size())];
            const IvaPopolata::Voce* voce = cliente.esente ? iva_.perCodice("E") : iva_.perId(articolo.idIva);
            if (std::ranges::find(codici, voce->id) == codici.end()) {
                if (codici.size() == clsCalcoli::numeroGruppi)
                    continue;
                codici.push_back(voce->id);
            }
            righe.push_back(rigaDi(articolo, *voce, cliente));
        }
        if (std::ranges::none_of(righe, &RigaDocumento::conImporto))
            return righeDi(cliente);
        return righe;
    }

    [[nodiscard]] RigaDocumento rigaDi(const ArticoloPopolato& articolo, const IvaPopolata::Voce& voce,
                                       const ClientePopolato& cliente)
    {
        RigaDocumento riga;
        riga.IDArticolo = articolo.id;
        riga.CodiceArticolo = articolo.codice;
        riga.Descrizione = articolo.descrizione;
        riga.UnitaMisura = articolo.unita;
        riga.Listino = cliente.listino;
        riga.IDCodiceIva = voce.id;
        riga.CodiceIva = voce.codice.substr(0, 1);
        riga.Quantita = caso_.unoSu(6) ? caso_.fra(1, 30) + 0.5 : caso_.fra(1, 40);
        riga.PrezzoUnitario =
            aCentesimi(Currency::fromTenThousandths(articolo.prezzo * (99 + cliente.listino) / 100 * 100));
        for (std::size_t i = 0; i < riga.Sconti.size(); ++i)
            riga.Sconti[i] = cliente.sconti[i];
        riga.TotaleRiga = aCentesimi(CalcolaTotaleRiga(riga.Quantita, riga.PrezzoUnitario, riga.Sconti).totale);
        return riga;
    }

    void ddt(Date data)
    {
        const std::size_t cliente = caso_.sotto(anagrafiche_.clienti.size());
        BollaAperta bolla{documentoDi(cliente, data), cliente};
        scrivi(tipo::ddt, bolla.documento, cliente);
        scaricaRighe(bolla.documento);
        if (bolla.documento.testata.Tipo == "V")
            bolle_.push_back(std::move(bolla));
        // Not all of them are invoiced.
        if (bolle_.size() > 60)
            bolle_.erase(bolle_.begin());
    }

    void fatturaDaBolle(Date data)
    {
        const std::size_t cliente = bolle_[caso_.sotto(bolle_.size())].cliente;
        std::vector<Documento> scelte;
        std::erase_if(bolle_, [&](BollaAperta& bolla) {
            if (bolla.cliente != cliente || bolla.documento.testata.DataDocumento.year() != data.year())
                return false;
            scelte.push_back(std::move(bolla.documento));
            return true;
        });
        Documento fattura;
        fattura.testata.DataDocumento = data;
        if (!scelte.empty())
            fattura.testata.RiferimentoBolla = "S";
        for (const Documento& bolla : scelte)
            std::ranges::move(righeRiportate(bolla), std::back_inserter(fattura.righe));
        if (codiciDi(fattura.righe) > clsCalcoli::numeroGruppi) {
            ddt(data);
            return;
        }
        scrivi(tipo::fattura, fattura, cliente);
        collega(cn_, fattura.testata, scelte);
    }

    static int codiciDi(const std::vector<RigaDocumento>& righe)
    {
        std::vector<std::int32_t> codici;
        for (const RigaDocumento& riga : righe) {
            if (riga.conImporto() && std::ranges::find(codici, riga.IDCodiceIva) == codici.end())
                codici.push_back(riga.IDCodiceIva);
        }
        return static_cast<int>(codici.size());
    }

    // Fills in the header and registers the document.
    void scrivi(std::int16_t tipoDocumento, Documento& documento, std::size_t indiceCliente)
    {
        const TabelleDocumento tabelle = tabelleDocumento(tipoDocumento);
        const ClientePopolato& cliente = anagrafiche_.clienti[indiceCliente];
        TestataDocumento& testata = documento.testata;
        const bool daBolle = testata.daDDT();
        const int registro = !daBolle && caso_.unoSu(12) ? 2 : 1;
        const int anno = testata.DataDocumento.year();
        const auto pagamento =
            std::ranges::find(anagrafiche_.pagamenti, cliente.pagamento, &Anagrafiche::Pagamento::id);

        testata.NumeroDocumento = ++numeri_[{tabelle.testata, anno * 10 + registro}];
        testata.AnnoDocumento = anno;
        testata.NumeroRegistro = registro;
        testata.IDCliente = cliente.id;
        testata.IDDestinazione =
            !daBolle && !cliente.destinazioni.empty() && caso_.unoSu(2) ? cliente.destinazioni[0] : 0;
        testata.ModalitaPagamento = pagamento->nome;
        testata.IDmodalitaPagamento = pagamento->id;
        DatiTrasporto& trasporto = testata.Trasporto.emplace();
        trasporto.SpedizioneAMezzo = "Destinatario";
        trasporto.Porto = caso_.unoSu(3) ? "Assegnato" : "Franco";
        trasporto.ColliAspetto = "A vista";
        trasporto.ColliNumero = caso_.fra(1, 12);
        trasporto.Peso = caso_.fra(1, 400) / 2.0;
        calcoli_.Calcola(documento.righe);
        calcoli_.riporta(testata);
        if (cliente.esente)
            testata.NoteEsenzioneIVA = cliente.noteEsenzione;
        if (tipoDocumento == tipo::ddt) {
            const bool reso = caso_.unoSu(20);
            testata.Tipo = reso ? "R" : "V";
            testata.CausaleTrasporto = reso ? "RESO" : "VENDITA";
            testata.EmessaFattura = "N";
        } else {
            testata.TipoDocumento = daBolle ? tipo::colonnaFatturaDifferita : tipoDocumento;
            testata.RiferimentoBolla = daBolle ? "S" : "N";
            testata.CausaleTrasporto = "Vendita";
        }
        testata.IDDocumento = scriviTestata(cn_, tabelle, testata);
        scriviRighe(cn_, tabelle, testata.IDDocumento, documento.righe);
        if (conScadenze(tipoDocumento))
            scadenze(testata);
    }

    void scadenze(const TestataDocumento& testata)
    {
        const Date oggi = Date::fromYmd(ultimoAnnoPopolato, 11, 20).value();
        std::vector<Rata> piano = calcolaPiano(cn_, testata.IDmodalitaPagamento, testata.DataDocumento,
                                               testata.NumeroRegistro.value(), testata.TotaleDocumento);
        for (Rata& rata : piano) {
            rata.Saldata = *rata.Scadenza < oggi && !caso_.unoSu(10);
            if (rata.Saldata)
                rata.DataPagamento = rata.Scadenza->addDays(caso_.fra(0, 20));
        }
        scriviRate(cn_, testata.IDDocumento, testata.NumeroRegistro.value(), piano);
    }

    void scaricaRighe(const Documento& documento)
    {
        for (const RigaDocumento& riga : documento.righe) {
            if (!riga.commento())
                scarica(articoli_.at(riga.IDArticolo)->stock, riga, documento.testata.DataDocumento);
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
        articolo.stock.carico += quantita;
        articolo.stock.giacenza += quantita;
        articolo.stock.costoUltimo = costo;
        articolo.caricoValore += totale;
        articolo.ultimoCarico = data.text();
    }

    void scriviGiacenze()
    {
        Recordset tabella = cn_.open("SELECT * FROM Articoli ORDER BY IDArticolo", OpenMode::updatable);
        for (const ArticoloPopolato& articolo : anagrafiche_.articoli) {
            tabella["DataPrimoCarico"] = articolo.ultimoCarico;
            tabella["DataUltimoCarico"] = articolo.ultimoCarico;
            tabella["DataUltimoScarico"] =
                articolo.stock.ultimoScarico ? Value(*articolo.stock.ultimoScarico) : Value();
            tabella["Carico"] = articolo.stock.carico;
            tabella["Scarico"] = articolo.stock.scarico;
            tabella["Giacenza"] = articolo.stock.giacenza;
            tabella["CostoUltimo"] = articolo.stock.costoUltimo;
            tabella["CaricoValore"] = articolo.caricoValore;
            tabella["ScaricoValore"] = articolo.stock.scaricoValore;
            if (articolo.stock.carico != 0)
                tabella["CostoMedio"] = articolo.caricoValore.toDouble() / articolo.stock.carico;
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
    std::map<std::int32_t, ArticoloPopolato*> articoli_;
    std::map<std::pair<std::string, int>, std::int32_t> numeri_;
    std::vector<BollaAperta> bolle_;
};

}  // namespace

void popolaArchivio(Connection& cn, int documenti, std::uint64_t seme)
{
    Popolatore(cn, documenti, seme).esegui();
}

}  // namespace bravona
