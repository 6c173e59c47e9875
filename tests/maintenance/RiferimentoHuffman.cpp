#include "maintenance/RiferimentoHuffman.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>

namespace bravona::riferimento {

namespace {

using Codice = std::vector<int>;

struct Nodo {
    int padre = -1;
    int sinistra = -1;
    int destra = -1;
    int valore = -1;
    std::int32_t peso = 0;
};

void segnala(std::vector<std::int16_t>& progressi, double percento)
{
    const auto intero = static_cast<std::int16_t>(std::nearbyint(percento));
    if (intero != (progressi.empty() ? 0 : progressi.back())) {
        progressi.push_back(intero);
    }
}

void scendi(const std::vector<Nodo>& nodi, int nodo, Codice codice, std::map<int, Codice>& codici)
{
    const Nodo& qui = nodi[static_cast<std::size_t>(nodo)];
    if (qui.valore > -1) {
        codici[qui.valore] = codice;
        return;
    }
    codice.push_back(0);
    scendi(nodi, qui.sinistra, codice, codici);
    codice.back() = 1;
    scendi(nodi, qui.destra, codice, codici);
}

std::map<int, Codice> codiciDi(const std::array<std::int32_t, 256>& frequenze)
{
    std::vector<Nodo> nodi;
    for (int valore = 0; valore < 256; ++valore) {
        if (frequenze[static_cast<std::size_t>(valore)] > 0) {
            nodi.push_back({-1, -1, -1, valore, frequenze[static_cast<std::size_t>(valore)]});
        }
    }
    for (std::size_t orfani = nodi.size(); orfani > 1; --orfani) {
        int nodo1 = -1;
        int nodo2 = -1;
        std::int32_t peso1 = 0;
        std::int32_t peso2 = 0;
        for (int i = 0; i < static_cast<int>(nodi.size()); ++i) {
            const Nodo& nodo = nodi[static_cast<std::size_t>(i)];
            if (nodo.padre != -1) {
                continue;
            }
            // The five cases as they are told, though some do the same. NOLINTBEGIN(bugprone-branch-clone)
            if (nodo1 == -1) {
                nodo1 = i, peso1 = nodo.peso;
            } else if (nodo2 == -1) {
                nodo2 = i, peso2 = nodo.peso;
            } else if (nodo.peso < peso1) {
                if (!(nodo.peso < peso2)) {
                    nodo1 = i, peso1 = nodo.peso;
                } else if (peso1 < peso2) {
                    nodo2 = i, peso2 = nodo.peso;
                } else {
                    nodo1 = i, peso1 = nodo.peso;
                }
            } else if (nodo.peso < peso2) {
                nodo2 = i, peso2 = nodo.peso;
            }
            // NOLINTEND(bugprone-branch-clone)
        }
        nodi[static_cast<std::size_t>(nodo1)].padre = static_cast<int>(nodi.size());
        nodi[static_cast<std::size_t>(nodo2)].padre = static_cast<int>(nodi.size());
        nodi.push_back({-1, nodo1, nodo2, -1, peso1 + peso2});
    }
    std::map<int, Codice> codici;
    scendi(nodi, static_cast<int>(nodi.size()) - 1, {}, codici);
    return codici;
}

void accodaBit(Bytes& dati, std::size_t& posto, const Codice& codice)
{
    for (const int bit : codice) {
        if (posto == 0) {
            dati.push_back(0);
        }
        dati.back() = static_cast<std::uint8_t>(dati.back() | bit << posto);
        posto = (posto + 1) % 8;
    }
}

Bytes memorizzati(const Bytes& originale)
{
    Bytes dati = {0x48, 0x45, 0x30, 0x0D};
    std::copy(originale.begin(), originale.end(), std::back_inserter(dati));
    return dati;
}

}  // namespace

Esito codifica(const Bytes& originale)
{
    Esito esito;
    if (originale.empty()) {
        esito.dati = memorizzati(originale);
        return esito;
    }
    const auto n = static_cast<double>(originale.size());
    std::array<std::int32_t, 256> frequenze{};
    for (std::size_t i = 0; i < originale.size(); ++i) {
        if (i % 1000 == 0) {
            segnala(esito.progressi, static_cast<double>(i) / n * 7);
        }
        ++frequenze[originale[i]];
    }
    const std::map<int, Codice> codici = codiciDi(frequenze);
    std::size_t bit = 0;
    for (const auto& [valore, codice] : codici) {
        bit += codice.size() * static_cast<std::size_t>(frequenze[static_cast<std::size_t>(valore)]);
    }
    if ((bit + 7) / 8 > originale.size() || bit == 0) {
        esito.dati = memorizzati(originale);
        return esito;
    }
    std::uint8_t somma = 0;
    for (std::size_t i = 0; i < originale.size(); ++i) {
        if (i % 10000 == 0) {
            segnala(esito.progressi, static_cast<double>(i) / n * 5 + 7);
        }
        somma ^= originale[i];
    }
    esito.dati = {0x48, 0x45, 0x33, 0x0D, somma};
    for (int i = 0; i < 4; ++i) {
        esito.dati.push_back(static_cast<std::uint8_t>(originale.size() >> (8 * i)));
    }
    esito.dati.push_back(static_cast<std::uint8_t>(codici.size()));
    esito.dati.push_back(static_cast<std::uint8_t>(codici.size() >> 8));
    for (const auto& [valore, codice] : codici) {
        esito.dati.push_back(static_cast<std::uint8_t>(valore));
        esito.dati.push_back(static_cast<std::uint8_t>(codice.size()));
    }
    std::size_t posto = 0;
    for (const auto& [valore, codice] : codici) {
        accodaBit(esito.dati, posto, codice);
    }
    posto = 0;
    for (std::size_t i = 0; i < originale.size(); ++i) {
        if (i % 10000 == 0) {
            segnala(esito.progressi, static_cast<double>(i) / n * 88 + 5 + 7);
        }
        accodaBit(esito.dati, posto, codici.at(originale[i]));
    }
    segnala(esito.progressi, 100);
    return esito;
}

std::optional<Esito> decodifica(const Bytes& codificati)
{
    const std::size_t l = codificati.size();
    Esito esito;
    if (l >= 4 && codificati[0] == 0x48 && codificati[1] == 0x45 && codificati[3] == 0x0D) {
        if (codificati[2] == 0x30) {
            esito.dati.assign(codificati.begin() + 4, codificati.end());
            return esito;
        }
        if (codificati[2] != 0x33) {
            return std::nullopt;
        }
    }
    if (l < 11) {
        return std::nullopt;
    }
    std::int64_t lunghezza = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        lunghezza |= std::int64_t{codificati[5 + i]} << (8 * i);
    }
    const std::size_t valori = codificati[9] | std::size_t{codificati[10]} << 8;
    std::array<Codice, 256> codici;
    std::size_t qui = 11;
    for (std::size_t i = 0; i < valori; ++i, qui += 2) {
        if (qui + 2 > l) {
            return std::nullopt;
        }
        codici[codificati[qui]].assign(codificati[qui + 1], 0);
    }
    std::size_t posto = 0;
    for (Codice& codice : codici) {
        for (int& bit : codice) {
            if (qui >= l) {
                return std::nullopt;
            }
            bit = codificati[qui] >> posto & 1;
            posto = (posto + 1) % 8;
            qui += posto == 0 ? 1 : 0;
        }
    }
    qui += posto != 0 ? 1 : 0;

    std::vector<Nodo> nodi(1);
    for (std::size_t valore = 0; valore < 256; ++valore) {
        std::size_t nodo = 0;
        for (const int bit : codici[valore]) {
            const int prossimo = bit != 0 ? nodi[nodo].destra : nodi[nodo].sinistra;
            if (prossimo >= 0) {
                nodo = static_cast<std::size_t>(prossimo);
                continue;
            }
            (bit != 0 ? nodi[nodo].destra : nodi[nodo].sinistra) = static_cast<int>(nodi.size());
            nodo = nodi.size();
            nodi.emplace_back();
        }
        nodi[nodo].valore = static_cast<int>(valore);
    }
    int nodo = 0;
    const auto finito = [&] { return static_cast<std::int64_t>(esito.dati.size()) >= lunghezza; };
    for (; qui < l && !finito(); ++qui) {
        for (int i = 0; i < 8 && !finito(); ++i) {
            const Nodo& padre = nodi[static_cast<std::size_t>(nodo)];
            nodo = (codificati[qui] >> i & 1) != 0 ? padre.destra : padre.sinistra;
            if (nodo < 0) {
                return std::nullopt;
            }
            if (nodi[static_cast<std::size_t>(nodo)].valore > -1) {
                esito.dati.push_back(static_cast<std::uint8_t>(nodi[static_cast<std::size_t>(nodo)].valore));
                nodo = 0;
            }
        }
        if (qui % 10000 == 0 && !finito()) {
            segnala(esito.progressi, static_cast<double>(qui) / static_cast<double>(l) * 89);
        }
    }
    std::uint8_t somma = 0;
    for (std::size_t i = 0; i < esito.dati.size(); ++i) {
        if (i % 10000 == 0) {
            segnala(esito.progressi, static_cast<double>(i) / static_cast<double>(esito.dati.size()) * 11 + 89);
        }
        somma ^= esito.dati[i];
    }
    if (!finito() || somma != codificati[4]) {
        return std::nullopt;
    }
    segnala(esito.progressi, 100);
    return esito;
}

}  // namespace bravona::riferimento
