#pragma once

#include <bit>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/store/Recordset.h"

namespace bravona {

// The rows of a record set in memory: nine bytes a cell, texts apart, one after another.
class RowStore {
public:
    explicit RowStore(std::size_t columns, bool withIds = false) : columns_(columns), withIds_(withIds) {}
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    [[nodiscard]] std::size_t rows() const { return rows_; }
    [[nodiscard]] std::size_t columns() const { return columns_; }

    // A new row of Nulls; its number.
    std::size_t append();
    void removeLast();
    void compact();  // gives back what growing took beforehand

    void setNull(std::size_t row, std::size_t column) { kindOf(row, column) = Kind::null; }
    void setWhole(std::size_t row, std::size_t column, std::int64_t value);
    void setReal(std::size_t row, std::size_t column, double value);
    void setText(std::size_t row, std::size_t column, std::string_view text);
    void setValue(std::size_t row, std::size_t column, const Value& value);

    [[nodiscard]] Value value(std::size_t row, std::size_t column, FieldType type) const;
    // The cell as it is kept: calls `visit` with std::monostate, std::int64_t, double or std::string_view.
    template <typename Visit>
    void visit(std::size_t row, std::size_t column, Visit&& visit) const
    {
        const std::size_t cell = at(row, column);
        switch (kinds_[cell]) {
        case Kind::null:
            visit(std::monostate{});
            break;
        case Kind::whole:
            visit(static_cast<std::int64_t>(cells_[cell]));
            break;
        case Kind::real:
            visit(std::bit_cast<double>(cells_[cell]));
            break;
        case Kind::text:
            visit(text(cell));
            break;
        }
    }
    // Copies a row of another store of the same columns.
    void copyRow(std::size_t row, const RowStore& from, std::size_t fromRow);

    // The engine's number of a row, for sets that can be changed.
    [[nodiscard]] std::int64_t id(std::size_t row) const { return ids_[row]; }
    void setId(std::size_t row, std::int64_t id) { ids_[row] = id; }

    // A row put aside and back, for changes that are given up.
    struct Saved {
        std::vector<std::uint8_t> kinds;
        std::vector<std::uint64_t> cells;
    };
    [[nodiscard]] Saved save(std::size_t row) const;
    void restore(std::size_t row, const Saved& saved);

private:
    enum class Kind : std::uint8_t { null, whole, real, text };

    [[nodiscard]] std::size_t at(std::size_t row, std::size_t column) const { return row * columns_ + column; }
    Kind& kindOf(std::size_t row, std::size_t column) { return kinds_[at(row, column)]; }
    [[nodiscard]] std::string_view text(std::size_t cell) const;
    char* room(std::size_t size);

    std::size_t columns_;
    std::size_t rows_ = 0;
    bool withIds_;
    std::vector<Kind> kinds_;
    std::vector<std::uint64_t> cells_;
    std::vector<std::int64_t> ids_;
    std::vector<std::unique_ptr<char[]>> chunks_;
    char* free_ = nullptr;
    std::size_t left_ = 0;
};

}  // namespace bravona
