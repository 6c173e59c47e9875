#include "maintenance/RiferimentoHuffman.h"
#include "maintenance/clsHuffman.h"
#include "platform/values/Errore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>

namespace bravona {
namespace {

Bytes da(std::string_view testo)
{
    return {testo.begin(), testo.end()};
}

// A compressed form from its parts.
Bytes forma(std::uint8_t somma, std::int32_t lunghezza, std::int16_t valori, const Bytes& resto)
{
    Bytes dati = {'H', 'E', '3', '\r', somma};
    for (int i = 0; i < 4; ++i) {
        dati.push_back(static_cast<std::uint8_t>(lunghezza >> (8 * i)));
    }
    dati.push_back(static_cast<std::uint8_t>(valori));
    dati.push_back(static_cast<std::uint8_t>(valori >> 8));
    dati.insert(dati.end(), resto.begin(), resto.end());
    return dati;
}

// "abbb" with a = 0, b = 1.
const Bytes buona = forma('a' ^ 'b', 4, 2, {'a', 1, 'b', 1, 0x02, 0x0E});

// The description of the failure, empty when there is none. A failure leaves the bytes as they were.
std::string rifiuto(const Bytes& codificati)
{
    Files file;
    Bytes dati = codificati;
    try {
        clsHuffman(file).DecodeByte(dati);
    } catch (const Errore& e) {
        EXPECT_EQ(e.numero(), 2147745792U);
        EXPECT_EQ(dati, codificati);
        return e.origine() + ": " + e.descrizione();
    }
    return {};
}

TEST(HuffmanOstileTest, DamagedFormsAreToldByWhatIsWrong)
{
    ASSERT_EQ(rifiuto(buona), "");
    const std::string origine = "clsHuffman.Decode(): ";
    const std::string checksum = origine + "Il Data base e corrotto (checksum non accettato i valori)";
    const std::string albero = origine + "Il file di backup e' danneggiato: la tabella dei codici non e' un albero";
    const std::string negativa = origine + "Il file di backup e' danneggiato: la lunghezza dei dati e' negativa";
    const std::string valori = origine + "Il file di backup e' danneggiato: il numero dei valori non e' valido";
    const std::string troncato = origine + "Il file di backup e' troncato: ";
    const std::string testata = troncato + "manca una parte dell'intestazione";
    const std::string dati = troncato + "i dati sono meno di quelli dichiarati";
    const std::string sconosciuta =
        "HuffmanDecode(): Impossibile fare il Backup o HE3 e corrotto.(identificazione stringa non trovata)";
    Bytes lunga = {'a', 255, 'b', 255};
    lunga.insert(lunga.end(), 80, 0x55);
    const struct {
        const char* nome;
        Bytes codificati;
        std::string atteso;
    } prove[] = {
        {"nothing", {}, testata},
        {"half a signature", da("HE0"), testata},
        {"unknown third byte", da("HE7\rabcdefgh"), sconosciuta},
        {"a foreign file fails further on", da("PK\x03\x04 some zip that is no backup"), valori},
        {"head cut off", Bytes(buona.begin(), buona.begin() + 8), testata},
        {"number of values cut off", Bytes(buona.begin(), buona.begin() + 10), testata},
        {"table cut off", Bytes(buona.begin(), buona.begin() + 14),
         troncato + "manca una parte della tabella dei codici"},
        {"codes cut off", Bytes(buona.begin(), buona.begin() + 15), troncato + "manca una parte dei codici"},
        {"data cut off", Bytes(buona.begin(), buona.begin() + 16), dati},
        {"negative length", forma(0, -1, 2, {'a', 1, 'b', 1, 0x02, 0x0E}), negativa},
        {"least length", forma(0, std::numeric_limits<std::int32_t>::min(), 2, {'a', 1, 'b', 1, 2, 14}), negativa},
        {"longer than the data can hold", forma(0, 9, 2, {'a', 1, 'b', 1, 0x02, 0x0E}), dati},
        {"longest length", forma(0, std::numeric_limits<std::int32_t>::max(), 2, {'a', 1, 'b', 1, 2, 14}), dati},
        {"last code cut off", forma(0, 5, 3, {'a', 1, 'b', 2, 'c', 2, 0x1A, 0xFF}), dati},
        {"no values", forma(0, 4, 0, {0x02, 0x0E}), valori},
        {"negative number of values", forma(0, 4, -2, {'a', 1, 'b', 1, 0x02, 0x0E}), valori},
        {"too many values", forma(0, 4, 257, Bytes(2000, 1)), valori},
        {"one value", forma('a', 1, 1, {'a', 1, 0x00, 0x00}), albero},
        {"a code of no bits", forma(0, 4, 2, {'a', 0, 'b', 1, 0x02, 0x0E}), albero},
        {"a value twice", forma(0, 4, 2, {'a', 1, 'a', 1, 0x02, 0x0E}), albero},
        {"values out of order", forma(0, 4, 2, {'b', 1, 'a', 1, 0x02, 0x0E}), albero},
        {"two equal codes", forma(0, 4, 2, {'a', 1, 'b', 1, 0x00, 0x0E}), albero},
        {"a code within a later one", forma(0, 4, 2, {'a', 1, 'b', 2, 0x04, 0x0E}), albero},
        {"a code within an earlier one", forma(0, 4, 2, {'a', 2, 'b', 1, 0x02, 0x0E}), albero},
        {"more codes than there is room", forma(0, 4, 3, {'a', 1, 'b', 1, 'c', 1, 0x02, 0x0E}), albero},
        {"paths that lead nowhere", forma(0, 4, 2, {'a', 2, 'b', 2, 0x0C, 0x0E}), albero},
        {"codes deeper than any tree", forma(0, 4, 2, lunga), albero},
        {"wrong checksum", forma(0, 4, 2, {'a', 1, 'b', 1, 0x02, 0x0E}), checksum},
    };
    for (const auto& prova : prove) {
        EXPECT_EQ(rifiuto(prova.codificati), prova.atteso) << prova.nome;
    }
}

TEST(HuffmanOstileTest, WhatTheFormatToleratesIsDecoded)
{
    Files file;
    const auto decodificati = [&file](Bytes dati) {
        clsHuffman(file).DecodeByte(dati);
        return dati;
    };
    Bytes straniera = buona;
    straniera[0] = 'X';
    straniera[2] = '0';
    EXPECT_EQ(decodificati(straniera), da("abbb"));
    EXPECT_EQ(decodificati(da("HE0\r")), Bytes());
    EXPECT_EQ(decodificati(da("HE0\rHE3\r")), da("HE3\r"));
    const Bytes senzaDati = forma(0, 0, 2, {'a', 1});
    EXPECT_EQ(decodificati(senzaDati), senzaDati);
    // 256 values whose codes grow from 1 to 255 bits: the deepest tree there is.
    Bytes tabella;
    std::vector<bool> bit;
    for (std::size_t valore = 0; valore < 256; ++valore) {
        const std::size_t lunghezza = std::min<std::size_t>(valore + 1, 255);
        tabella.push_back(static_cast<std::uint8_t>(valore));
        tabella.push_back(static_cast<std::uint8_t>(lunghezza));
        bit.insert(bit.end(), lunghezza - 1, true);
        bit.push_back(valore == 255);
    }
    bit.resize((bit.size() + 7) / 8 * 8);
    for (const std::size_t valore : {255U, 0U, 254U, 13U, 12U, 11U, 253U, 1U, 255U, 255U}) {
        bit.insert(bit.end(), std::min<std::size_t>(valore, 254), true);
        bit.push_back(valore == 255);
    }
    for (std::size_t i = 0; i < bit.size(); i += 8) {
        std::uint8_t byte = 0;
        for (std::size_t j = 0; j < 8 && i + j < bit.size(); ++j) {
            byte = static_cast<std::uint8_t>(byte | (bit[i + j] ? 1 << j : 0));
        }
        tabella.push_back(byte);
    }
    const Bytes profondi = {255, 0, 254, 13, 12, 11, 253, 1, 255, 255};
    std::uint8_t somma = 0;
    for (const std::uint8_t byte : profondi) {
        somma ^= byte;
    }
    EXPECT_EQ(decodificati(forma(somma, 10, 256, tabella)), profondi);
}

// Wherever bytes are changed, cut or added: refused, or what the plain walk makes of it.
TEST(HuffmanOstileTest, ChangedBytesAreRefusedOrDecodeAsThePlainWalkDoes)
{
    Files file;
    const clsHuffman huffman(file);
    std::mt19937_64 caso(11);
    std::size_t rifiutati = 0;
    constexpr std::size_t tentativi = 5000;
    for (std::size_t i = 0; i < tentativi; ++i) {
        Bytes dati(2 + caso() % 60);
        for (std::uint8_t& byte : dati) {
            byte = static_cast<std::uint8_t>('a' + caso() % 9 * (caso() % 3));
        }
        huffman.EncodeByte(dati);
        for (std::size_t cambi = 1 + caso() % 3; cambi > 0; --cambi) {
            const std::size_t posto = caso() % dati.size();
            switch (caso() % 6) {
            case 0:
                dati.resize(posto + 1);
                break;
            case 1:
                dati.push_back(static_cast<std::uint8_t>(caso()));
                break;
            case 2:
                dati[posto] = static_cast<std::uint8_t>(caso());
                break;
            default:
                dati[posto] = static_cast<std::uint8_t>(dati[posto] ^ 1 << caso() % 8);
            }
        }
        const auto atteso = riferimento::decodifica(dati);
        Bytes decodificati = dati;
        try {
            huffman.DecodeByte(decodificati);
            ASSERT_TRUE(atteso || decodificati == dati);
            if (atteso && decodificati != dati) {
                ASSERT_EQ(decodificati, atteso->dati);
            }
        } catch (const Errore& e) {
            ASSERT_EQ(e.numero(), errori::codec);
            ++rifiutati;
        }
    }
    EXPECT_GT(rifiutati, tentativi / 2);
}

}  // namespace
}  // namespace bravona
