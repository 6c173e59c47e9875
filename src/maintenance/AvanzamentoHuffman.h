#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace bravona::huffman {

// The percent values of one operation. A stage looks at the multiples of its step only, and a value is raised when its
// rounding (halves to even) differs from the last one. The next index at which that happens is worked out ahead, so
// that the loops over the data run undisturbed up to it.
class AvanzamentoHuffman {
public:
    using Evento = std::function<void(std::int16_t)>;

    explicit AvanzamentoHuffman(const Evento& evento) : evento_(evento) {}

    struct Fase {
        std::size_t totale = 0;  // the percent at index i is i / totale * ampiezza + base + aggiunta
        std::size_t passo = 1;
        double ampiezza = 0;
        double base = 0;
        double aggiunta = 0;
    };

    // Begins a stage at `indice`. Within one operation its values never fall below those raised before.
    void inizia(const Fase& fase, std::size_t indice = 0);
    // First index of the stage at which a value is due, or its total when none is left.
    [[nodiscard]] std::size_t prossimo() const { return prossimo_; }
    // Raises what is due up to and at `indice`.
    void raggiunto(std::size_t indice);
    // Raises what is left of the stage.
    void completa();
    // Raises 100 unless it was raised already.
    void fine();

private:
    [[nodiscard]] std::int16_t percento(std::size_t indice) const;
    void cerca(std::size_t da);

    const Evento& evento_;
    Fase fase_;
    std::size_t prossimo_ = 0;
    std::int16_t ultimo_ = 0;
};

}  // namespace bravona::huffman
