#include "platform/store/Recordset.h"

#include <type_traits>

#include "platform/store/RecordsetState.h"

namespace bravona {
namespace {

Recordset::State& opened(const std::unique_ptr<Recordset::State>& state)
{
    if (!state) {
        throw Errore(3704, "Operazione non consentita su un insieme di record chiuso.");
    }
    return *state;
}

[[noreturn]] void noRow()
{
    throw Errore(errori::nessunRecordCorrente, "Nessun record corrente.");
}

}  // namespace

// --- Field

const std::string& Field::name() const
{
    return set_->state_->set->columns[column_].name;
}

FieldType Field::type() const
{
    return set_->state_->set->columns[column_].type;
}

const Value& Field::value() const
{
    return set_->state_->value(column_);
}

void Field::set(const Value& value)
{
    set_->state_->change(column_, value);
}

// --- Recordset

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::Recordset(std::unique_ptr<State> state) : state_(std::move(state)) {}

bool Recordset::isOpen() const
{
    return state_ != nullptr;
}

void Recordset::close()
{
    state_.reset();
}

std::size_t Recordset::recordCount() const
{
    State& s = opened(state_);
    s.load();
    return s.size();
}

const std::vector<ColumnInfo>& Recordset::columns() const
{
    return opened(state_).set->columns;
}

bool Recordset::hasColumn(std::string_view name) const
{
    return opened(state_).set->index.find(name) != NameIndex::npos;
}

bool Recordset::eof() const
{
    State& s = opened(state_);
    if (s.onRow()) {
        return false;
    }
    s.load();
    return s.cursor >= static_cast<std::ptrdiff_t>(s.size());
}

bool Recordset::bof() const
{
    State& s = opened(state_);
    if (s.onRow()) {
        return false;
    }
    s.load();
    return s.cursor < 0 || s.size() == 0;
}

Value Recordset::valueAt(std::size_t row, std::size_t column) const
{
    const auto [rows, place] = opened(state_).cell(row, column);
    return rows.value(place, column, state_->set->columns[column].type);
}

std::string Recordset::textAt(std::size_t row, std::size_t column) const
{
    const State::Cell cell = opened(state_).cell(row, column);
    std::string text;
    cell.rows.visit(cell.row, column, [&](auto value) {
        if constexpr (std::is_same_v<decltype(value), std::string_view>) {
            text = value;
        } else if constexpr (!std::is_same_v<decltype(value), std::monostate>) {
            text = cell.rows.value(cell.row, column, state_->set->columns[column].type).text();
        }
    });
    return text;
}

void Recordset::moveFirst()
{
    State& s = opened(state_);
    s.moveTo(0);
    if (s.size() == 0) {
        noRow();
    }
}

void Recordset::moveLast()
{
    State& s = opened(state_);
    s.leave();
    s.load();
    s.moveTo(static_cast<std::ptrdiff_t>(s.size()) - 1);
    if (s.size() == 0) {
        noRow();
    }
}

void Recordset::moveNext()
{
    State& s = opened(state_);
    s.leave();
    s.load();
    if (s.cursor >= static_cast<std::ptrdiff_t>(s.size())) {
        noRow();
    }
    s.moveTo(s.cursor + 1);
}

void Recordset::movePrevious()
{
    State& s = opened(state_);
    s.leave();
    s.load();
    if (s.cursor < 0 || s.size() == 0) {
        noRow();
    }
    s.moveTo(s.cursor - 1);
}

void Recordset::moveTo(std::size_t row)
{
    State& s = opened(state_);
    s.leave();
    s.load();
    if (row >= s.size()) {
        throw Errore(errori::indiceFuoriIntervallo, "Indice non incluso nell'intervallo.");
    }
    s.moveTo(static_cast<std::ptrdiff_t>(row));
}

std::size_t Recordset::position() const
{
    State& s = opened(state_);
    s.load();
    static_cast<void>(s.row());
    return static_cast<std::size_t>(s.cursor);
}

Field Recordset::operator[](std::string_view name)
{
    const std::size_t column = opened(state_).set->index.find(name);
    if (column == NameIndex::npos) {
        throw Errore(3265, "Il campo \"" + std::string(name) + "\" non esiste.");
    }
    return Field(*this, column);
}

Field Recordset::operator[](std::size_t position)
{
    if (position >= opened(state_).set->columns.size()) {
        throw Errore(errori::indiceFuoriIntervallo, "Indice non incluso nell'intervallo.");
    }
    return Field(*this, position);
}

Recordset& Recordset::chapter(std::string_view name)
{
    return opened(state_).chapter(name);
}

void Recordset::addNew()
{
    opened(state_).addNew();
}

void Recordset::update()
{
    opened(state_).update();
}

void Recordset::cancelUpdate()
{
    opened(state_).cancel();
}

void Recordset::remove()
{
    opened(state_).remove();
}

void Recordset::updateBatch()
{
    opened(state_).updateBatch();
}

bool Recordset::isEdited() const
{
    return opened(state_).isEditing;
}

bool Recordset::isBatch() const
{
    return opened(state_).isBatch;
}

bool Recordset::isUpdatable() const
{
    return opened(state_).isUpdatable();
}

}  // namespace bravona
