#pragma once

#include <QSettings>
#include <optional>
#include <string>

#include "platform/settings/Settings.h"

namespace bravona {

// The per-user store on the system's own place for settings, under the application's key "BV2004".
class QtSettings final : public Settings {
public:
    QtSettings();
    explicit QtSettings(const QString& file);  // a file of its own, for tests
    [[nodiscard]] std::optional<std::string> find(std::string_view section, std::string_view key) const override;
    void save(std::string_view section, std::string_view key, std::string_view value) override;
    [[nodiscard]] QSettings& store() { return store_; }

private:
    QSettings store_;
};

}  // namespace bravona
