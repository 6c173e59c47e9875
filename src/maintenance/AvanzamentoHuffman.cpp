#include "maintenance/AvanzamentoHuffman.h"

#include <cmath>

namespace bravona::huffman {

void AvanzamentoHuffman::inizia(const Fase& fase, std::size_t indice)
{
    fase_ = fase;
    cerca(indice);
}

void AvanzamentoHuffman::raggiunto(std::size_t indice)
{
    while (prossimo_ <= indice && prossimo_ < fase_.totale) {
        ultimo_ = percento(prossimo_);
        evento_(ultimo_);
        cerca(prossimo_);
    }
}

void AvanzamentoHuffman::completa()
{
    raggiunto(fase_.totale);
}

void AvanzamentoHuffman::fine()
{
    if (evento_ && ultimo_ != 100) {
        ultimo_ = 100;
        evento_(ultimo_);
    }
}

std::int16_t AvanzamentoHuffman::percento(std::size_t indice) const
{
    const double quota = static_cast<double>(indice) / static_cast<double>(fase_.totale) * fase_.ampiezza;
    return static_cast<std::int16_t>(std::nearbyint(quota + fase_.base + fase_.aggiunta));
}

void AvanzamentoHuffman::cerca(std::size_t da)
{
    prossimo_ = fase_.totale;
    if (!evento_ || fase_.totale == 0) {
        return;
    }
    // The values never fall, so the first multiple with another one is found by halving.
    std::size_t basso = (da + fase_.passo - 1) / fase_.passo;
    std::size_t alto = (fase_.totale - 1) / fase_.passo + 1;
    while (basso < alto) {
        const std::size_t mezzo = basso + (alto - basso) / 2;
        if (percento(mezzo * fase_.passo) != ultimo_) {
            alto = mezzo;
        } else {
            basso = mezzo + 1;
        }
    }
    if (basso * fase_.passo < fase_.totale) {
        prossimo_ = basso * fase_.passo;
    }
}

}  // namespace bravona::huffman
