#include "platform/store/RecordsetState.h"

#include <algorithm>
#include <numeric>

namespace bravona {

Recordset::State::Row Recordset::State::row() const
{
    if (!onRow()) {
        throw Errore(errori::nessunRecordCorrente, "Nessun record corrente.");
    }
    return order[static_cast<std::size_t>(cursor)];
}

void Recordset::State::allRows(Row first, std::size_t count)
{
    order.resize(count);
    std::iota(order.begin(), order.end(), static_cast<std::uint32_t>(first));
}

void Recordset::State::load()
{
    if (isLoaded) {
        return;
    }
    const std::shared_ptr<Connection::Impl> from = open();
    const std::shared_ptr<RowStore> fresh = from->readTable(from->table(table));
    const std::size_t stored = fresh->rows();
    const bool hadRow = onRow();
    const Row current = hadRow ? row() : 0;
    const auto place = [&](std::int64_t id) {
        Row r = 0;
        while (r < stored && fresh->id(r) != id) {
            ++r;
        }
        return r;
    };
    std::ptrdiff_t at = 0;
    // Rows that were added and not sent follow those of the table.
    for (const std::uint32_t old : order) {
        const bool isCurrent = hadRow && old == current;
        const auto change = std::ranges::find(changes_, old, &Change::row);
        const bool unsent = (isCurrent && isEditing && isNew) || (change != changes_.end() && change->isNew);
        if (unsent) {
            const Row r = fresh->append();
            fresh->copyRow(r, *rows, old);
            if (change != changes_.end()) {
                change->row = r;
            }
            at = isCurrent ? static_cast<std::ptrdiff_t>(r) : at;
        } else if (isCurrent) {
            const Row r = place(rows->id(old));
            at = static_cast<std::ptrdiff_t>(r);
            if (isEditing && r < stored) {
                fresh->copyRow(r, *rows, old);
            }
        }
    }
    rows = fresh;
    allRows(0, fresh->rows());
    cursor = at;
    previous = 0;
    isLoaded = true;
    forget();
}

void Recordset::State::moveTo(std::ptrdiff_t position)
{
    leave();
    load();
    cursor = std::clamp<std::ptrdiff_t>(position, -1, static_cast<std::ptrdiff_t>(order.size()));
    forget();
}

void Recordset::State::leave()
{
    if (isEditing) {
        update();
    }
}

Recordset::State::Cell Recordset::State::cell(std::size_t position, std::size_t column)
{
    load();
    if (position >= size() || column >= dataColumns()) {
        throw Errore(errori::indiceFuoriIntervallo, "Indice non incluso nell'intervallo.");
    }
    return {*rows, order[position]};
}

const Value& Recordset::State::value(std::size_t column)
{
    static const Value nothing;
    if (!onRow()) {
        load();
    }
    const Row r = row();
    if (column >= dataColumns()) {
        return nothing;
    }
    if (values_.empty()) {
        values_.resize(dataColumns());
        stamps_.assign(dataColumns(), 0);
    }
    if (stamps_[column] != stamp_) {
        values_[column] = rows->value(r, column, set->columns[column].type);
        stamps_[column] = stamp_;
    }
    return values_[column];
}

std::shared_ptr<Connection::Impl> Recordset::State::open() const
{
    std::shared_ptr<Connection::Impl> to = connection.lock();
    if (!to || to->generation != generation) {
        throw Errore(3420, "L'archivio è stato chiuso.");
    }
    return to;
}

Recordset& Recordset::State::chapter(std::string_view name)
{
    const std::size_t column = set->index.find(name);
    if (column == NameIndex::npos || column < dataColumns()) {
        throw Errore(3265, "Il campo \"" + std::string(name) + "\" non esiste.");
    }
    const std::size_t which = column - dataColumns();
    const Chapter& c = (*chapters)[which];
    const Row r = row();
    std::unique_ptr<Recordset>& child = children[(static_cast<std::uint64_t>(which) << 32U) | r];
    if (!child) {
        auto state = std::make_unique<State>(c.columns, c.rows);
        if (isDeclared) {
            state->rows = std::make_shared<RowStore>(c.lengths.size());
            state->isDeclared = true;
            state->lengths = c.lengths;
            state->chapters = c.chapters;
            state->relatedColumn = c.childColumn;
        } else {
            const Chapter::Stretch stretch = c.stretches[r];
            state->allRows(stretch.first, stretch.count);
        }
        child.reset(new Recordset(std::move(state)));
    }
    if (isDeclared) {
        child->state_->relatedValue = rows->value(r, c.parentColumn, FieldType::text);
    }
    return *child;
}

}  // namespace bravona
