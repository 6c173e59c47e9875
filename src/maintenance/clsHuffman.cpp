#include "maintenance/clsHuffman.h"

#include "maintenance/AlberoCodifica.h"
#include "maintenance/AlberoDecodifica.h"
#include "maintenance/AvanzamentoHuffman.h"
#include "maintenance/CodificaHuffman.h"
#include "maintenance/DecodificaHuffman.h"
#include "maintenance/FormatoHuffman.h"
#include "maintenance/PaginaDiCodice.h"
#include "platform/values/Errore.h"

#include <array>
#include <new>
#include <numeric>
#include <span>
#include <utility>

namespace bravona {

namespace {

using namespace huffman;

constexpr const char* origineCodifica = "clsHuffman.Encode()";
constexpr const char* origineDecodifica = "clsHuffman.Decode()";

constexpr std::array<std::uint8_t, lunghezzaFirma> firmaCompressa = {'H', 'E', '3', '\r'};
constexpr std::array<std::uint8_t, lunghezzaFirma> firmaMemorizzata = {'H', 'E', '0', '\r'};

std::span<const std::uint8_t> primi(const Bytes& dati, std::size_t lunghezza, std::uint64_t massimo,
                                    const char* origine)
{
    if (lunghezza > massimo) {
        throw Errore(errori::codec, "I dati sono troppo lunghi per un file di backup", origine);
    }
    if (lunghezza > dati.size()) {
        throw Errore(errori::indiceFuoriIntervallo, "La lunghezza supera quella dei dati", origine);
    }
    return std::span(dati).first(lunghezza);
}

Bytes memorizza(std::span<const std::uint8_t> dati)
{
    Bytes risultato = roomFor(firmaMemorizzata.size() + dati.size());
    risultato.insert(risultato.end(), firmaMemorizzata.begin(), firmaMemorizzata.end());
    risultato.insert(risultato.end(), dati.begin(), dati.end());
    return risultato;
}

void accoda(Bytes& risultato, std::uint64_t valore, std::size_t byte)
{
    for (std::size_t i = 0; i < byte; ++i) {
        risultato.push_back(static_cast<std::uint8_t>(valore >> (8 * i)));
    }
}

// A value that occurs an even number of times leaves no trace in the exclusive or.
std::uint8_t sommaDi(const Frequenze& frequenze)
{
    std::uint8_t somma = 0;
    for (std::size_t valore = 0; valore < numeroValori; ++valore) {
        if (frequenze[valore] % 2 != 0) {
            somma ^= static_cast<std::uint8_t>(valore);
        }
    }
    return somma;
}

void scriviTabella(const Codici& codici, Bytes& risultato)
{
    for (std::size_t valore = 0; valore < numeroValori; ++valore) {
        if (codici[valore].lunghezza > 0) {
            risultato.push_back(static_cast<std::uint8_t>(valore));
            risultato.push_back(codici[valore].lunghezza);
        }
    }
    std::uint8_t byte = 0;
    unsigned posto = 0;
    for (const Codice& codice : codici) {
        for (unsigned i = 0; i < codice.lunghezza; ++i) {
            byte = static_cast<std::uint8_t>(byte | (codice.bit >> i & 1) << posto);
            if (++posto == 8) {
                risultato.push_back(byte);
                byte = 0;
                posto = 0;
            }
        }
    }
    if (posto > 0) {
        risultato.push_back(byte);
    }
}

// A failure like any other: an archive may be larger than the memory there is.
template <class Lavoro>
clsHuffman::Esito conLaMemoriaCheCE(const char* origine, const Lavoro& lavoro)
{
    try {
        return lavoro();
    } catch (const std::bad_alloc&) {
        constexpr std::uint32_t memoriaEsaurita = 7;
        throw Errore(memoriaEsaurita, "Memoria esaurita.", origine);
    }
}

}  // namespace

clsHuffman::clsHuffman(Files& file) : file_(file) {}

void clsHuffman::EncodeByte(Bytes& dati, std::size_t lunghezza) const
{
    const auto originale = primi(dati, lunghezza, lunghezzaMassima, origineCodifica);
    if (originale.empty()) {
        dati = memorizza(originale);
        return;
    }
    AvanzamentoHuffman avanzamento(Progress);
    const Frequenze frequenze = contaValori(originale, avanzamento);
    const Codici codici = creaCodici(frequenze);

    std::size_t valori = 0;
    std::uint64_t bitCodici = 0;
    std::uint64_t bitDati = 0;
    for (std::size_t valore = 0; valore < numeroValori; ++valore) {
        valori += frequenze[valore] > 0 ? 1 : 0;
        bitCodici += codici[valore].lunghezza;
        bitDati += std::uint64_t{codici[valore].lunghezza} * frequenze[valore];
    }
    const std::uint64_t byteDati = (bitDati + 7) / 8;
    if (byteDati > originale.size() || byteDati == 0) {
        dati = memorizza(originale);
        return;
    }

    // The checksum comes with the frequencies; only its percents are left of that stage.
    avanzamento.inizia({.totale = originale.size(), .passo = 10000, .ampiezza = 5, .base = 7});
    avanzamento.completa();

    Bytes risultato = roomFor(posizioneTabella + 2 * valori + (bitCodici + 7) / 8 + byteDati);
    risultato.insert(risultato.end(), firmaCompressa.begin(), firmaCompressa.end());
    risultato.push_back(sommaDi(frequenze));
    accoda(risultato, originale.size(), 4);
    accoda(risultato, valori, 2);
    scriviTabella(codici, risultato);
    scriviDati(originale, codici, risultato, avanzamento);
    avanzamento.fine();
    dati = std::move(risultato);
}

void clsHuffman::DecodeByte(Bytes& dati, std::size_t lunghezza) const
{
    const auto codificati = primi(dati, lunghezza, lunghezzaCodificataMassima, origineDecodifica);
    const Testata testata = leggiTestata(codificati);
    if (testata.forma == Forma::memorizzata) {
        dati.resize(lunghezza);
        dati.erase(dati.begin(), dati.begin() + lunghezzaFirma);
        return;
    }
    if (testata.lunghezza == 0) {
        return;
    }
    const AlberoDecodifica albero(codificati, static_cast<std::size_t>(testata.valori));
    AvanzamentoHuffman avanzamento(Progress);
    Originale originale = leggiDati(codificati, albero, static_cast<std::size_t>(testata.lunghezza), avanzamento);

    // Summed while it was decoded; only the percents are left of that stage.
    avanzamento.inizia({.totale = originale.dati.size(), .passo = 10000, .ampiezza = 11, .base = 89});
    avanzamento.completa();
    if (originale.somma != testata.somma) {
        throw Errore(errori::codec, "Il Data base e corrotto (checksum non accettato i valori)", origineDecodifica);
    }
    avanzamento.fine();
    dati = std::move(originale.dati);
}

Bytes clsHuffman::leggi(const std::string& sorgente, std::uint64_t massimo, const char* origine,
                        const char* mancante) const
{
    if (!file_.exists(sorgente)) {
        throw Errore(errori::codec, mancante, origine);
    }
    if (file_.size(sorgente) > massimo) {
        throw Errore(errori::codec, "Il file e' troppo lungo per un backup", origine);
    }
    return file_.read(sorgente);
}

clsHuffman::Esito clsHuffman::EncodeFile(const std::string& sorgente, const std::string& destinazione,
                                         const std::vector<std::string>& precedenti) const
{
    constexpr const char* origine = "clsHuffman.EncodeFile()";
    return conLaMemoriaCheCE(origine, [&] {
        Bytes dati = leggi(sorgente, lunghezzaMassima, origine, "Sorgente Data base non esiste");
        if (dati.empty()) {
            throw Errore(errori::indiceFuoriIntervallo, "Il file da salvare e' vuoto", origine);
        }
        Esito esito;
        esito.letti = dati.size();
        EncodeByte(dati);
        file_.replace(destinazione, dati, {.ownerOnly = true, .earlier = precedenti});
        esito.scritti = dati.size();
        return esito;
    });
}

clsHuffman::Esito clsHuffman::DecodeFile(const std::string& sorgente, const std::string& destinazione) const
{
    constexpr const char* origine = "clsHuffman.DecodeFile()";
    return conLaMemoriaCheCE(origine, [&] {
        Bytes dati = leggi(sorgente, lunghezzaCodificataMassima, origine, "Sorgente Data base non esiste ");
        Esito esito;
        esito.letti = dati.size();
        if (leggiTestata(dati).forma == Forma::compressa && leggiTestata(dati).lunghezza == 0) {
            throw Errore(errori::codec, "Il file di backup non contiene dati", origine);
        }
        DecodeByte(dati);
        if (dati.empty()) {
            throw Errore(errori::indiceFuoriIntervallo, "Il file di backup non contiene dati", origine);
        }
        file_.replace(destinazione, dati, {.ownerOnly = true, .earlier = {}});
        esito.scritti = dati.size();
        return esito;
    });
}

std::string clsHuffman::EncodeString(std::string_view testo) const
{
    Bytes byte = inPaginaDiCodice(testo);
    EncodeByte(byte);
    return daPaginaDiCodice(byte);
}

std::string clsHuffman::DecodeString(std::string_view testo) const
{
    Bytes byte = inPaginaDiCodice(testo);
    DecodeByte(byte);
    return daPaginaDiCodice(byte);
}

}  // namespace bravona
