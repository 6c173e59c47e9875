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
    if (places.inTable[column] == TableWriter::none) {
        throw Errore(3164, "Il campo \"" + set->columns[column].name + "\" non si può modificare.");
    }
    const FieldType type = set->columns[column].type;
    if (type == FieldType::text && std::holds_alternative<std::string>(value.variant())) {
        beginEdit();
        rows->setValue(r, column, value);
    } else {
        const Value converted = convertTo(value, type);
        beginEdit();
        rows->setValue(r, column, converted);
    }
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
    const Table& t = writer(*to).table();
    for (std::size_t i = 0; i < places.inTable.size(); ++i) {
        if (places.inTable[i] != TableWriter::none) {
            rows->setValue(r, i, t.defaults[places.inTable[i]]);
        }
    }
    isEditing = true;
    isNew = true;
    dirty.assign(dataColumns(), false);
}

TableWriter& Recordset::State::writer(Connection::Impl& to)
{
    if (writer_ == nullptr || writerStamp_ != to.catalogueStamp) {
        writer_ = &to.writer(to.table(table));
        writerStamp_ = to.catalogueStamp;
    }
    return *writer_;
}

std::size_t Recordset::State::counterColumn(const Table& of) const
{
    return of.counter == NameIndex::npos ? NameIndex::npos : places.inSet[of.counter];
}

void Recordset::State::sendNew(TableWriter& to, Row r)
{
    const std::int64_t id = to.insert(*rows, r, places);
    rows->setId(r, id);
    const std::size_t counter = counterColumn(to.table());
    if (counter != NameIndex::npos) {
        rows->setWhole(r, counter, id);
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
            sendNew(writer(*to), r);
        } else {
            writer(*to).update(*rows, r, places, dirty);
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
        writer(*to).remove(rows->id(r));
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
    const std::size_t counter = counterColumn(writer(*to).table());
    std::vector<Row> given;  // new rows that took their key from the store
    try {
        to->allOrNothing([&] {
            for (const Change& c : changes_) {
                if (c.isNew && c.isRemoved) {
                    continue;
                }
                to->beforeWrite(table);
                if (c.isRemoved) {
                    writer(*to).remove(rows->id(c.row));
                } else if (c.isNew) {
                    if (counter != NameIndex::npos && rows->value(c.row, counter, FieldType::counter).isNull()) {
                        given.push_back(c.row);
                    }
                    sendNew(writer(*to), c.row);
                } else {
                    writer(*to).update(*rows, c.row, places, c.dirty);
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
