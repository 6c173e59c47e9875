#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "documents/AperturaDocumento.h"
#include "documents/SchermataDocumento.h"

namespace bravona {

// A stored document, looked at and changed: what its two screens have in common. It opens read-only; "&Modifica" lets
// it be changed, "&Aggiorna" writes it over the old one, "Annulla" shows again what the archive has. What is being
// changed is given up only when the person agrees.
class SchermataModifica : public SchermataDocumento, public ApreDocumento {
public:
    // Of the document to be loaded, then of the one that shows.
    std::int32_t NumeroDocumento = 0;
    std::int32_t AnnoDocumento = 0;
    std::int32_t NumeroRegistro = 0;

    void ApriDocumento(const DocumentoDaAprire& documento) override;
    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;

protected:
    struct Testi {
        const char* modulo;           // the module named when writing fails
        const char* annullaModifica;  // the question before changes are given up
        const char* nessunArticolo;   // of a document without articles
    };
    SchermataModifica(Sessione& sessione, const Nomi& nomi, RegoleRighe regole, Testi testi);

    // False, after having told it on the first page, without a customer. Nothing is added then.
    [[nodiscard]] bool clienteIndicato();
    // The document that the properties name, in place of the one that shows; false when the person keeps that one,
    // which comes forward. Errore 3021 when there is none; then, too, the one that shows stays.
    bool carica();

    [[nodiscard]] const TestataDocumento& caricata() const { return caricata_; }
    // Customer, header and transport into the fields. With `clienteIntero` the customer's terms are his own of today,
    // else they are the document's, and only his price list is brought in.
    void mostraTestata(const TestataDocumento& testata, bool clienteIntero);

    // What the two screens have of their own.
    virtual void prendiProprieta(const DocumentoDaAprire& documento);
    [[nodiscard]] virtual std::int16_t tipoTabelle() const = 0;    // of the document that the properties name
    virtual void mostra(const Documento& documento) = 0;           // into the fields; its rows follow
    virtual void mostraRate(std::span<const Rata> /*rate*/) {}     // after the rows
    virtual void riprendiProprieta();                              // those of the document that shows
    [[nodiscard]] virtual std::string titoloLettura() const = 0;   // the caption of the one that shows
    [[nodiscard]] virtual std::string titoloModifica() const = 0;  // the same while it is changed
    virtual void primaDellaModifica() {}                           // something is told
    virtual void abilitaAltro(bool /*modificabili*/) {}            // beside the frames of the pages
    // Within the transaction: completes the header as it is to be written, and writes what it may carry along.
    virtual void completa(TestataDocumento& testata) = 0;
    virtual void scriviAltro(const TestataDocumento& /*testata*/) {}
    virtual void concluso(bool /*scritto*/) {}  // after the transaction
    [[nodiscard]] virtual std::string testoAggiornato() const = 0;
    virtual void stampa() = 0;

private:
    void mostraDalArchivio();
    void riempi(const Documento& documento);
    void entraInModifica();
    void esceDallaModifica();
    void annulla();
    void RegistraModificheDocumento();
    [[nodiscard]] bool ControllaDatiDocumento();
    [[nodiscard]] bool puoLasciare();  // not being changed, or given up

    Testi testi_;
    TestataDocumento caricata_;  // of the document that shows; without a key there is none
    bool modificaAbilitata_ = true;
};

}  // namespace bravona
