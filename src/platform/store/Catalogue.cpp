#include "platform/store/Catalogue.h"

#include <array>
#include <utility>

#include "platform/store/Tokenizer.h"

namespace bravona {
namespace {

std::size_t hashName(std::string_view name)
{
    std::uint32_t h = 2166136261U;
    for (const char c : name) {
        h = (h ^ static_cast<unsigned char>(lowerAscii(c))) * 16777619U;
    }
    return h ^ (h >> 15U);
}

std::string folded(std::string_view name)
{
    std::string result(name);
    for (char& c : result) {
        c = lowerAscii(c);
    }
    return result;
}

constexpr std::array<std::pair<FieldType, std::string_view>, 8> declarations = {{
    {FieldType::counter, "INTEGER"},
    {FieldType::longInt, "LONG INTEGER"},
    {FieldType::integer, "SHORT INTEGER"},
    {FieldType::dbl, "DOUBLE"},
    {FieldType::currency, "CURRENCY"},
    {FieldType::date, "DATE"},
    {FieldType::text, "TEXT"},
    {FieldType::yesNo, "YESNO"},
}};

}  // namespace

void NameIndex::build(const std::vector<ColumnInfo>& columns)
{
    columns_ = &columns;
    std::size_t size = 4;
    while (size < columns.size() * 2) {
        size *= 2;
    }
    slots_.assign(size, 0);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::size_t slot = hashName(columns[i].name) & (size - 1);
        while (slots_[slot] != 0 && !sameName(columns[slots_[slot] - 1U].name, columns[i].name)) {
            slot = (slot + 1) & (size - 1);
        }
        if (slots_[slot] == 0) {
            slots_[slot] = static_cast<std::uint16_t>(i + 1);
        }
    }
}

std::size_t NameIndex::find(std::string_view name) const
{
    if (slots_.empty()) {
        return npos;
    }
    std::size_t slot = hashName(name) & (slots_.size() - 1);
    while (slots_[slot] != 0) {
        const std::size_t i = slots_[slot] - 1U;
        if (sameName((*columns_)[i].name, name)) {
            return i;
        }
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return npos;
}

void Catalogue::reset(std::vector<std::string> names, Loader loader)
{
    entries_.clear();
    loader_ = std::move(loader);
    for (std::string& name : names) {
        std::string key = folded(name);
        entries_[std::move(key)].name = std::move(name);
    }
}

const Table* Catalogue::find(std::string_view name)
{
    const auto it = entries_.find(folded(name));
    if (it == entries_.end()) {
        return nullptr;
    }
    if (!it->second.table) {
        it->second.table = loader_(it->second.name);
    }
    return it->second.table.get();
}

FieldType declaredType(std::string_view declaration, bool counter)
{
    if (counter) {
        return FieldType::counter;
    }
    for (const auto& [type, word] : declarations) {
        if (type != FieldType::counter && sameName(word, declaration)) {
            return type;
        }
    }
    if (sameName(declaration, "INTEGER")) {
        return FieldType::longInt;
    }
    return FieldType::text;
}

std::string_view declarationOf(FieldType type)
{
    for (const auto& [known, word] : declarations) {
        if (known == type) {
            return word;
        }
    }
    return "TEXT";
}

}  // namespace bravona
