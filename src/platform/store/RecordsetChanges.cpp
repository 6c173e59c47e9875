#include <algorithm>

#include "platform/store/RecordsetState.h"
#include "platform/text/Text.h"

namespace bravona {

void Recordset::State::needUpdatable() const
{
    if (!isUpdatable()) {
        throw Errore(3027, "I record non sono modificabili.");
    }
}

void Recordset::State::beginEdit()
{
    if (isEditing) {
        return;
    }
    isEditing = true;
    isNew = false;
    dirty.assign(dataColumns(), false);
    before = rows->save(row());
}

void Recordset::State::endEdit()
{
    isEditing = false;
    isNew = false;
    before = {};
}

void Recordset::State::change(std::size_t column, const Value& value)
{
    needUpdatable();
    if (!onRow()) {
        load();
    }
    const Row r = row();
    if (column >= dataColumns()) {
        throw Errore(3164, "Il campo non si può modificare.");
    }
    if (isDeclared) {
        rows->setValue(r, column, value.isNull() ? value : Value(left(value.text(), lengths[column])));
        forget();
        return;
    }
    if (places[column] == TableWriter::none) {
        throw Errore(3164, "Il campo \"" + set->columns[column].name + "\" non si può modificare.");
    }
    const Value converted = convertTo(value, set->columns[column].type);
    beginEdit();
    rows->setValue(r, column, converted);
    dirty[column] = true;
    forget();
}

void Recordset::State::addNew()
{
    needUpdatable();
    leave();
    previous = cursor;
    const Row r = rows->append();
    order.push_back(static_cast<std::uint32_t>(r));
    cursor = static_cast<std::ptrdiff_t>(order.size()) - 1;
    forget();
    if (isDeclared) {
        if (relatedColumn != NameIndex::npos) {
            rows->setValue(r, relatedColumn, relatedValue);
        }
        return;
    }
    const std::shared_ptr<Connection::Impl> to = open();
    const Table& t = to->table(table);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] != TableWriter::none) {
            rows->setValue(r, i, t.defaults[places[i]]);
        }
    }
    isEditing = true;
    isNew = true;
    dirty.assign(dataColumns(), false);
}

void Recordset::State::sendNew(Connection::Impl& to, Row r)
{
    const Table& t = to.table(table);
    const std::int64_t id = to.writer(t).insert(*rows, r, places);
    rows->setId(r, id);
    if (t.counter == NameIndex::npos) {
        return;
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == t.counter) {
            rows->setWhole(r, i, id);
        }
    }
}

void Recordset::State::update()
{
    needUpdatable();
    if (!isEditing) {
        if (!onRow()) {
            load();
        }
        static_cast<void>(row());
        return;
    }
    const Row r = row();
    if (isBatch) {
        keepChange();
    } else {
        const std::shared_ptr<Connection::Impl> to = open();
        to->beforeWrite(table);
        if (isNew) {
            sendNew(*to, r);
        } else {
            to->writer(to->table(table)).update(*rows, r, places, dirty);
        }
    }
    endEdit();
    forget();
}

void Recordset::State::cancel()
{
    if (!isEditing) {
        return;
    }
    if (isNew) {
        const Row r = row();
        order.erase(order.begin() + cursor);
        if (r + 1 == rows->rows()) {
            rows->removeLast();
        }
        cursor = std::min<std::ptrdiff_t>(previous, static_cast<std::ptrdiff_t>(order.size()));
    } else {
        rows->restore(row(), before);
    }
    endEdit();
    forget();
}

void Recordset::State::remove()
{
    needUpdatable();
    if (isEditing && isNew) {
        cancel();
        return;
    }
    cancel();
    if (!onRow()) {
        load();
    }
    const Row r = row();
    if (isBatch) {
        const auto known = std::ranges::find(changes_, r, &Change::row);
        if (known != changes_.end()) {
            known->isRemoved = true;
        } else {
            changes_.push_back({r, false, true, {}});
        }
    } else if (!isDeclared) {
        const std::shared_ptr<Connection::Impl> to = open();
        to->beforeWrite(table);
        to->writer(to->table(table)).remove(rows->id(r));
    }
    order.erase(order.begin() + cursor);
    forget();
}

void Recordset::State::keepChange()
{
    const Row r = row();
    const auto known = std::ranges::find(changes_, r, &Change::row);
    if (known == changes_.end()) {
        changes_.push_back({r, isNew, false, dirty});
        return;
    }
    for (std::size_t i = 0; i < dirty.size(); ++i) {
        known->dirty[i] = known->dirty[i] || dirty[i];
    }
}

void Recordset::State::updateBatch()
{
    needUpdatable();
    leave();
    if (changes_.empty()) {
        return;
    }
    const std::shared_ptr<Connection::Impl> to = open();
    const std::size_t counter = [&] {
        const auto it = std::ranges::find(places, to->table(table).counter);
        return it == places.end() || *it == TableWriter::none ? NameIndex::npos
                                                              : static_cast<std::size_t>(it - places.begin());
    }();
    std::vector<Row> given;  // new rows that took their key from the store
    try {
        to->allOrNothing([&] {
            for (const Change& c : changes_) {
                if (c.isNew && c.isRemoved) {
                    continue;
                }
                to->beforeWrite(table);
                TableWriter& writer = to->writer(to->table(table));
                if (c.isRemoved) {
                    writer.remove(rows->id(c.row));
                } else if (c.isNew) {
                    if (counter != NameIndex::npos && rows->value(c.row, counter, FieldType::counter).isNull()) {
                        given.push_back(c.row);
                    }
                    sendNew(*to, c.row);
                } else {
                    writer.update(*rows, c.row, places, c.dirty);
                }
            }
        });
    } catch (...) {
        for (const Row r : given) {
            rows->setNull(r, counter);
        }
        forget();
        throw;
    }
    changes_.clear();
    forget();
}

}  // namespace bravona
