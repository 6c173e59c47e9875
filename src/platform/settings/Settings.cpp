#include "platform/settings/Settings.h"

namespace bravona {

std::optional<std::string> MemorySettings::find(std::string_view section, std::string_view key) const
{
    const auto trovato = values_.find({std::string(section), std::string(key)});
    if (trovato == values_.end()) {
        return std::nullopt;
    }
    return trovato->second;
}

void MemorySettings::save(std::string_view section, std::string_view key, std::string_view value)
{
    values_.insert_or_assign({std::string(section), std::string(key)}, std::string(value));
}

}  // namespace bravona
