#include "platform/qt/WindowPlaces.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace bravona {

namespace {

std::vector<int> numbers(const QString& text)
{
    std::vector<int> result;
    for (const QString& part : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool ok = false;
        result.push_back(part.toInt(&ok));
        if (!ok) {
            return {};
        }
    }
    return result;
}

QString text(const std::vector<int>& numbers)
{
    QStringList parts;
    for (const int number : numbers) {
        parts.push_back(QString::number(number));
    }
    return parts.join(QLatin1Char(' '));
}

}  // namespace

std::optional<WindowPlaces::Place> WindowPlaces::place(const QString& form) const
{
    if (const auto known = places_.find(form); known != places_.end()) {
        return known->second;
    }
    if (store_ == nullptr) {
        return std::nullopt;
    }
    const std::vector<int> kept = numbers(store_->value(QStringLiteral("Finestre/") + form).toString());
    if (kept.size() != 5 || kept[2] < 50 || kept[3] < 30) {
        return std::nullopt;
    }
    return Place{QRect(kept[0], kept[1], kept[2], kept[3]), kept[4] != 0};
}

void WindowPlaces::setPlace(const QString& form, const Place& place)
{
    places_[form] = place;
    if (store_ != nullptr) {
        const QRect& r = place.rect;
        store_->setValue(QStringLiteral("Finestre/") + form,
                         text({r.x(), r.y(), r.width(), r.height(), place.maximised ? 1 : 0}));
    }
}

std::vector<int> WindowPlaces::widths(const QString& list) const
{
    if (const auto known = widths_.find(list); known != widths_.end()) {
        return known->second;
    }
    return store_ == nullptr ? std::vector<int>()
                             : numbers(store_->value(QStringLiteral("Colonne/") + list).toString());
}

void WindowPlaces::setWidths(const QString& list, const std::vector<int>& widths)
{
    widths_[list] = widths;
    if (store_ != nullptr) {
        store_->setValue(QStringLiteral("Colonne/") + list, text(widths));
    }
}

QString WindowPlaces::folder(const QString& kind) const
{
    const auto known = folders_.find(kind);
    const QString kept = known != folders_.end() ? known->second
                         : store_ == nullptr     ? QString()
                                                 : store_->value(QStringLiteral("Cartelle/") + kind).toString();
    return QFileInfo(kept).isDir() ? kept : QString();
}

void WindowPlaces::setFolder(const QString& kind, const QString& folder)
{
    folders_[kind] = folder;
    if (store_ != nullptr) {
        store_->setValue(QStringLiteral("Cartelle/") + kind, folder);
    }
}

}  // namespace bravona
