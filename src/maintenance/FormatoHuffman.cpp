#include "maintenance/FormatoHuffman.h"

#include "platform/values/Errore.h"

namespace bravona::huffman {

namespace {

std::uint32_t leggiIntero(std::span<const std::uint8_t> dati, std::size_t posizione, std::size_t byte)
{
    std::uint32_t valore = 0;
    for (std::size_t i = byte; i-- > 0;) {
        valore = (valore << 8) | dati[posizione + i];
    }
    return valore;
}

}  // namespace

void rifiuta(const char* descrizione)
{
    throw Errore(errori::codec, descrizione, "clsHuffman.Decode()");
}

Testata leggiTestata(std::span<const std::uint8_t> dati)
{
    constexpr const char* troncata = "Il file di backup e' troncato: manca una parte dell'intestazione";
    Testata testata;
    if (dati.size() < lunghezzaFirma) {
        rifiuta(troncata);
    }
    if (dati[0] == 'H' && dati[1] == 'E' && dati[3] == '\r') {
        if (dati[2] == '0') {
            testata.forma = Forma::memorizzata;
            return testata;
        }
        if (dati[2] != '3') {
            throw Errore(errori::codec,
                         "Impossibile fare il Backup o HE3 e corrotto.(identificazione stringa non trovata)",
                         "HuffmanDecode()");
        }
    }
    if (dati.size() < posizioneValori) {
        rifiuta(troncata);
    }
    testata.somma = dati[posizioneSomma];
    testata.lunghezza = static_cast<std::int32_t>(leggiIntero(dati, posizioneLunghezza, 4));
    if (testata.lunghezza == 0) {
        return testata;
    }
    if (testata.lunghezza < 0) {
        rifiuta("Il file di backup e' danneggiato: la lunghezza dei dati e' negativa");
    }
    if (dati.size() < posizioneTabella) {
        rifiuta(troncata);
    }
    testata.valori = static_cast<std::int16_t>(leggiIntero(dati, posizioneValori, 2));
    if (testata.valori < 1 || testata.valori > static_cast<std::int16_t>(numeroValori)) {
        rifiuta("Il file di backup e' danneggiato: il numero dei valori non e' valido");
    }
    return testata;
}

}  // namespace bravona::huffman
