#include "maintenance/clsHuffman.h"
#include "platform/values/Errore.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void pretendi(bool vero)
{
    if (!vero) {
        std::abort();
    }
}

}  // namespace

// Any bytes decode or are refused, without touching them; what decodes can be packed and comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti)
{
    using namespace bravona;
    Files file;
    clsHuffman huffman(file);
    std::int16_t ultimo = 0;
    huffman.Progress = [&ultimo](std::int16_t percento) {
        pretendi(percento > ultimo && percento <= 100);
        ultimo = percento;
    };
    const Bytes ingresso(dati, dati + quanti);
    Bytes lavoro = ingresso;
    try {
        huffman.DecodeByte(lavoro);
    } catch (const Errore& e) {
        pretendi(e.numero() == errori::codec && !e.descrizione().empty());
        pretendi(lavoro == ingresso);
        return 0;
    }
    pretendi(lavoro.size() <= quanti * 8);

    const Bytes originale = lavoro;
    ultimo = 0;
    huffman.EncodeByte(lavoro);
    ultimo = 0;
    huffman.DecodeByte(lavoro);
    pretendi(lavoro == originale);
    return 0;
}
