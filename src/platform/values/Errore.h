#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace bravona {

// The one run-time failure of the platform: what the store, the files, a conversion or a control refuses.
// Routines with a trap of their own turn it into their message; what none of them catches reaches the host.
class Errore : public std::runtime_error {
public:
    Errore(std::uint32_t numero, const std::string& descrizione, std::string origine = {})
        : std::runtime_error(descrizione),
          numero_(numero),
          origine_(std::move(origine))
    {}

    // Number of the failure, in the program's own number space or the store's.
    [[nodiscard]] std::uint32_t numero() const noexcept { return numero_; }
    [[nodiscard]] std::string descrizione() const { return what(); }
    // Class and routine that raised it; empty for the platform's own.
    [[nodiscard]] const std::string& origine() const noexcept { return origine_; }

private:
    std::uint32_t numero_;
    std::string origine_;
};

namespace errori {
inline constexpr std::uint32_t argomentoNonValido = 5;
inline constexpr std::uint32_t numeroTroppoGrande = 6;
inline constexpr std::uint32_t indiceFuoriIntervallo = 9;
inline constexpr std::uint32_t divisionePerZero = 11;
inline constexpr std::uint32_t testoNonConvertibile = 13;
inline constexpr std::uint32_t fileMancante = 53;
inline constexpr std::uint32_t discoPieno = 61;
inline constexpr std::uint32_t permessoNegato = 70;
inline constexpr std::uint32_t unitaNonPronta = 71;
inline constexpr std::uint32_t erroreDiPercorso = 75;
inline constexpr std::uint32_t selezioneMancante = 91;
inline constexpr std::uint32_t valoreNullo = 94;
inline constexpr std::uint32_t nessunRecordCorrente = 3021;
inline constexpr std::uint32_t chiaveDuplicata = 3022;
inline constexpr std::uint32_t recordCorrelati = 3200;
inline constexpr std::uint32_t testoObbligatorioVuoto = 3315;
inline constexpr std::uint32_t chiaveGiaInElenco = 35602;
inline constexpr std::uint32_t codec = 0x80040000U;
}  // namespace errori

}  // namespace bravona
