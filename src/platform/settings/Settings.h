#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace bravona {

// Per-user store of named texts, by section and key; the application's key "BV2004" is the store's own affair.
// Nothing is ever deleted, and a read never makes a key.
class Settings {
public:
    virtual ~Settings() = default;
    [[nodiscard]] virtual std::optional<std::string> find(std::string_view section, std::string_view key) const = 0;
    virtual void save(std::string_view section, std::string_view key, std::string_view value) = 0;

    [[nodiscard]] std::string get(std::string_view section, std::string_view key, std::string_view fallback = {}) const
    {
        return find(section, key).value_or(std::string(fallback));
    }
};

// In memory, for tests and journeys.
class MemorySettings final : public Settings {
public:
    [[nodiscard]] std::optional<std::string> find(std::string_view section, std::string_view key) const override;
    void save(std::string_view section, std::string_view key, std::string_view value) override;

private:
    std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace bravona
