#include "platform/qt/QtSettings.h"

#include "platform/qt/Conversions.h"

namespace bravona {

namespace {

// A name as it stands; the store parts its groups by "/".
QString name(std::string_view section, std::string_view key)
{
    const auto safe = [](std::string_view text) {
        return toQt(std::string(text)).replace(QLatin1Char('/'), QLatin1Char('\\'));
    };
    return safe(section) + QLatin1Char('/') + safe(key);
}

}  // namespace

QtSettings::QtSettings()
    : store_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("bravona"), QStringLiteral("BV2004"))
{
    store_.setFallbacksEnabled(false);  // this person's alone
}

QtSettings::QtSettings(const QString& file) : store_(file, QSettings::IniFormat) {}

std::optional<std::string> QtSettings::find(std::string_view section, std::string_view key) const
{
    const QVariant value = store_.value(name(section, key));
    if (!value.isValid()) {
        return std::nullopt;
    }
    // A file edited by hand may hold a list where a text with commas was meant.
    return fromQt(value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1Char(','))
                                                           : value.toString());
}

void QtSettings::save(std::string_view section, std::string_view key, std::string_view value)
{
    store_.setValue(name(section, key), toQt(std::string(value)));
    store_.sync();
}

}  // namespace bravona
