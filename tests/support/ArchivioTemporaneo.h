#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/Connection.h"

namespace bravona {

// A folder of its own, gone at the end of its scope.
class CartellaTemporanea {
public:
    CartellaTemporanea();
    ~CartellaTemporanea();
    CartellaTemporanea(const CartellaTemporanea&) = delete;
    CartellaTemporanea& operator=(const CartellaTemporanea&) = delete;
    [[nodiscard]] std::string file(std::string_view nome) const;

private:
    std::filesystem::path cartella_;
};

// An archive of the smallest kind in a folder of its own, open.
class ArchivioTemporaneo {
public:
    ArchivioTemporaneo();

    Connection cn;
    [[nodiscard]] std::string percorso() const { return cartella_.file("archivio.mdb"); }
    [[nodiscard]] const CartellaTemporanea& cartella() const { return cartella_; }
    // The rows of a SELECT, as `rigaComeTesto` tells them.
    std::vector<std::string> righe(std::string_view istruzione);
    // The one value of a SELECT of one row and column.
    std::string valore(std::string_view istruzione);

private:
    CartellaTemporanea cartella_;
};

// Null, True, 12.3400 for amounts, the shortest form of doubles, dd/mm/yyyy.
std::string comeTesto(const Value& valore);
// The current row, its values parted by bars.
std::string rigaComeTesto(Recordset& rs);

}  // namespace bravona
