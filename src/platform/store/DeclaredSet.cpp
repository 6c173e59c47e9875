#include "platform/store/Recordset.h"
#include "platform/store/RecordsetState.h"
#include "platform/store/Tokenizer.h"

namespace bravona {
namespace {

// What a set and a chapter of it are made of.
struct Layout {
    std::shared_ptr<const ColumnSet> columns;
    std::vector<std::size_t> lengths;
    std::shared_ptr<const std::vector<Chapter>> chapters;
};

std::size_t placeOf(const std::vector<DeclaredColumn>& columns, const std::string& wanted)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (sameName(columns[i].name, wanted)) {
            return i;
        }
    }
    throw Errore(3450, "La colonna " + wanted + " di RELATE non esiste.");
}

Layout layOut(const DeclaredSet& declared)
{
    Layout layout;
    std::vector<ColumnInfo> columns;
    for (const DeclaredColumn& column : declared.columns) {
        columns.push_back({column.name, FieldType::text, {}, {}});
        layout.lengths.push_back(column.length);
    }
    std::vector<Chapter> chapters;
    for (const DeclaredChapter& child : declared.chapters) {
        columns.push_back({child.name, FieldType::chapter, {}, {}});
        Layout rows = layOut(child.rows);
        Chapter& chapter = chapters.emplace_back();
        chapter.name = child.name;
        chapter.parentColumn = placeOf(declared.columns, child.parentColumn);
        chapter.childColumn = placeOf(child.rows.columns, child.childColumn);
        chapter.columns = std::move(rows.columns);
        chapter.lengths = std::move(rows.lengths);
        chapter.chapters = std::move(rows.chapters);
    }
    layout.columns = std::make_shared<const ColumnSet>(std::move(columns));
    layout.chapters = std::make_shared<const std::vector<Chapter>>(std::move(chapters));
    return layout;
}

}  // namespace

Recordset Recordset::declare(const DeclaredSet& declared)
{
    Layout layout = layOut(declared);
    auto rows = std::make_shared<RowStore>(layout.lengths.size());
    auto state = std::make_unique<State>(std::move(layout.columns), std::move(rows));
    state->isDeclared = true;
    state->lengths = std::move(layout.lengths);
    state->chapters = std::move(layout.chapters);
    return Recordset(std::move(state));
}

}  // namespace bravona
