#include "platform/store/RowStore.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace bravona {
namespace {

constexpr std::size_t firstChunk = 512;
constexpr std::size_t greatestChunk = 256 * 1024;

}  // namespace

std::size_t RowStore::append()
{
    kinds_.resize(kinds_.size() + columns_, Kind::null);
    cells_.resize(cells_.size() + columns_, 0);
    if (withIds_) {
        ids_.push_back(0);
    }
    return rows_++;
}

void RowStore::removeLast()
{
    --rows_;
    kinds_.resize(rows_ * columns_);
    cells_.resize(rows_ * columns_);
    if (withIds_) {
        ids_.pop_back();
    }
}

void RowStore::compact()
{
    kinds_.shrink_to_fit();
    cells_.shrink_to_fit();
    ids_.shrink_to_fit();
}

char* RowStore::room(std::size_t size)
{
    if (size > left_) {
        const std::size_t usual = std::min(firstChunk << std::min<std::size_t>(chunks_.size(), 16), greatestChunk);
        const std::size_t chunk = std::max(usual, size);
        chunks_.push_back(std::make_unique_for_overwrite<char[]>(chunk));
        free_ = chunks_.back().get();
        left_ = chunk;
    }
    char* place = free_;
    free_ += size;
    left_ -= size;
    return place;
}

void RowStore::setWhole(std::size_t row, std::size_t column, std::int64_t value)
{
    kindOf(row, column) = Kind::whole;
    cells_[at(row, column)] = static_cast<std::uint64_t>(value);
}

void RowStore::setReal(std::size_t row, std::size_t column, double value)
{
    kindOf(row, column) = Kind::real;
    cells_[at(row, column)] = std::bit_cast<std::uint64_t>(value);
}

void RowStore::setText(std::size_t row, std::size_t column, std::string_view text)
{
    const auto size = static_cast<std::uint32_t>(text.size());
    char* place = room(sizeof size + text.size());
    std::memcpy(place, &size, sizeof size);
    if (!text.empty()) {
        std::memcpy(place + sizeof size, text.data(), text.size());
    }
    kindOf(row, column) = Kind::text;
    cells_[at(row, column)] = reinterpret_cast<std::uintptr_t>(place);
}

std::string_view RowStore::text(std::size_t cell) const
{
    const char* place = reinterpret_cast<const char*>(static_cast<std::uintptr_t>(cells_[cell]));
    std::uint32_t size = 0;
    std::memcpy(&size, place, sizeof size);
    return {place + sizeof size, size};
}

void RowStore::setValue(std::size_t row, std::size_t column, const Value& value)
{
    struct Setter {
        RowStore& store;
        std::size_t row;
        std::size_t column;
        void operator()(std::monostate) const { store.setNull(row, column); }
        void operator()(bool v) const { store.setWhole(row, column, v ? 1 : 0); }
        void operator()(std::int64_t v) const { store.setWhole(row, column, v); }
        void operator()(double v) const { store.setReal(row, column, v); }
        void operator()(Currency v) const { store.setWhole(row, column, v.tenThousandths()); }
        void operator()(Date v) const { store.setWhole(row, column, v.dayNumber()); }
        void operator()(const std::string& v) const { store.setText(row, column, v); }
    };
    std::visit(Setter{*this, row, column}, value.variant());
}

Value RowStore::value(std::size_t row, std::size_t column, FieldType type) const
{
    const std::size_t cell = at(row, column);
    switch (kinds_[cell]) {
    case Kind::null:
        return {};
    case Kind::real:
        return std::bit_cast<double>(cells_[cell]);
    case Kind::text:
        return std::string(text(cell));
    case Kind::whole:
        break;
    }
    const auto n = static_cast<std::int64_t>(cells_[cell]);
    switch (type) {
    case FieldType::currency:
        return Currency::fromTenThousandths(n);
    case FieldType::date:
        return Date::fromDayNumber(static_cast<std::int32_t>(n));
    case FieldType::yesNo:
        return n != 0;
    case FieldType::dbl:
        return static_cast<double>(n);
    case FieldType::text:
        return std::to_string(n);
    default:
        return n;
    }
}

void RowStore::copyRow(std::size_t row, const RowStore& from, std::size_t fromRow)
{
    struct Setter {
        RowStore& store;
        std::size_t row;
        std::size_t column;
        void operator()(std::monostate) const { store.setNull(row, column); }
        void operator()(std::int64_t v) const { store.setWhole(row, column, v); }
        void operator()(double v) const { store.setReal(row, column, v); }
        void operator()(std::string_view v) const { store.setText(row, column, v); }
    };
    for (std::size_t c = 0; c < columns_; ++c) {
        from.visit(fromRow, c, Setter{*this, row, c});
    }
    if (withIds_) {
        ids_[row] = from.ids_[fromRow];
    }
}

RowStore::Saved RowStore::save(std::size_t row) const
{
    Saved saved;
    saved.kinds.reserve(columns_);
    for (std::size_t c = 0; c < columns_; ++c) {
        saved.kinds.push_back(static_cast<std::uint8_t>(kinds_[at(row, c)]));
    }
    saved.cells.assign(cells_.begin() + static_cast<std::ptrdiff_t>(at(row, 0)),
                       cells_.begin() + static_cast<std::ptrdiff_t>(at(row, 0) + columns_));
    return saved;
}

void RowStore::restore(std::size_t row, const Saved& saved)
{
    for (std::size_t c = 0; c < columns_; ++c) {
        kinds_[at(row, c)] = static_cast<Kind>(saved.kinds[c]);
        cells_[at(row, c)] = saved.cells[c];
    }
}

}  // namespace bravona
