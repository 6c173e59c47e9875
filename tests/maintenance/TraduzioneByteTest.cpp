#include "maintenance/TraduzioneByte.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace bravona::huffman {
namespace {

// Whatever is done many bytes at a time: each length and each start, and nothing beside what was asked.
TEST(TraduzioneByte, EveryByteByItsTableAndNothingBeside)
{
    std::array<std::uint8_t, 256> tabella{};
    for (std::size_t i = 0; i < tabella.size(); ++i) {
        tabella[i] = static_cast<std::uint8_t>(i * 167 + 13);
    }
    std::vector<std::uint8_t> dati(600);
    std::iota(dati.begin(), dati.end(), std::uint8_t{7});
    for (std::size_t inizio = 0; inizio < 3; ++inizio) {
        for (std::size_t lunghezza = 0; lunghezza < 400; ++lunghezza) {
            std::vector<std::uint8_t> uscita(lunghezza + 2, 0xEE);
            const std::uint8_t* da = dati.data() + inizio;
            std::uint8_t* fine = traduci(tabella, da, da + lunghezza, uscita.data() + 1);
            ASSERT_EQ(fine, uscita.data() + 1 + lunghezza);
            ASSERT_EQ(uscita.front(), 0xEE);
            ASSERT_EQ(uscita.back(), 0xEE);
            for (std::size_t i = 0; i < lunghezza; ++i) {
                ASSERT_EQ(uscita[i + 1], tabella[da[i]]) << lunghezza << " " << i;
            }
        }
    }
}

}  // namespace
}  // namespace bravona::huffman
