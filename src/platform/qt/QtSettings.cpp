#include "platform/qt/QtSettings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>

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

// The toolkit waits for ever for a lock file that a kill has left empty. Nobody's is the one whose lock can be had.
void removeOrphanedLock(const QSettings& store)
{
    const QByteArray name = QFile::encodeName(store.fileName() + QStringLiteral(".lock"));
    const int fd = ::open(name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
        ::unlink(name.constData());
    }
    ::close(fd);
}

}  // namespace

QtSettings::QtSettings()
    : store_(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("bravona"), QStringLiteral("BV2004"))
{
    store_.setFallbacksEnabled(false);  // this person's alone
    removeOrphanedLock(store_);
}

QtSettings::QtSettings(const QString& file) : store_(file, QSettings::IniFormat)
{
    removeOrphanedLock(store_);
}

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
    removeOrphanedLock(store_);
    store_.setValue(name(section, key), toQt(std::string(value)));
    store_.sync();
}

}  // namespace bravona
