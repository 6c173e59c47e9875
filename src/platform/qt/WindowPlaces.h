#pragma once

#include <QRect>
#include <QString>
#include <map>
#include <optional>
#include <vector>

class QSettings;

namespace bravona {

// Where the person left the windows, how wide the columns of lists and where files were saved: in a group of its own of
// the settings, or, without a store, for as long as the program runs.
class WindowPlaces {
public:
    struct Place {
        QRect rect;
        bool maximised = false;
    };
    explicit WindowPlaces(QSettings* store = nullptr) : store_(store) {}
    [[nodiscard]] std::optional<Place> place(const QString& form) const;
    void setPlace(const QString& form, const Place& place);
    [[nodiscard]] std::vector<int> widths(const QString& list) const;  // empty: none kept
    void setWidths(const QString& list, const std::vector<int>& widths);
    // The folder that files of a kind were saved into last, while it exists; empty: none kept.
    [[nodiscard]] QString folder(const QString& kind) const;
    void setFolder(const QString& kind, const QString& folder);

private:
    QSettings* store_;
    std::map<QString, Place> places_;
    std::map<QString, std::vector<int>> widths_;
    std::map<QString, QString> folders_;
};

}  // namespace bravona
