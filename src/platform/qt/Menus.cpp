#include "platform/qt/Menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <vector>

#include "platform/qt/Conversions.h"
#include "platform/text/Text.h"
#include "platform/windowing/Letters.h"

namespace bravona::menus {

namespace {

void followEntry(QAction& action, const Menu& entry, const QString& caption)
{
    if (action.text() != caption) {
        action.setText(caption);
    }
    action.setEnabled(entry.enabled);
    action.setVisible(entry.visible);
}

// True when the actions stand for these entries one by one; they are brought up to date then.
bool followEntries(const QList<QAction*>& actions, const Menu& record)
{
    if (actions.size() != static_cast<qsizetype>(record.entries.size())) {
        return false;
    }
    const std::vector<std::string> texts = Letters::ofEntries(record);
    for (qsizetype i = 0; i < actions.size(); ++i) {
        const Menu& entry = *record.entries[static_cast<std::size_t>(i)];
        QAction& action = *actions[i];
        const bool hasMenu = action.menu() != nullptr;
        if (action.isSeparator() != entry.separator || action.objectName() != toQt(entry.name) ||
            hasMenu == entry.entries.empty() || (hasMenu && !followEntries(action.menu()->actions(), entry))) {
            return false;
        }
        if (!entry.separator) {
            followEntry(action, entry, toQt(texts[static_cast<std::size_t>(i)]));
        }
    }
    return true;
}

template <class Target>
void addEntries(Target& target, Menu& record, const Chosen& chosen)
{
    const std::vector<std::string> texts = Letters::ofEntries(record);
    for (std::size_t i = 0; i < record.entries.size(); ++i) {
        Menu& one = *record.entries[i];
        if (one.separator) {
            target.addSeparator()->setObjectName(toQt(one.name));
            continue;
        }
        QAction* action = nullptr;
        if (one.entries.empty()) {
            action = target.addAction(toQt(one.caption));
            if (!one.shortcut.empty()) {
                // Shown only: the core knows the keys.
                action->setShortcut(QKeySequence(toQt(one.shortcut)));
                action->setShortcutContext(Qt::WidgetShortcut);
            }
            QObject::connect(action, &QAction::triggered, action, [chosen, &one] { chosen(one); });
        } else {
            auto* inner = new QMenu(toQt(one.caption), &target);
            fill(*inner, one, chosen);
            // What can be chosen may have changed without a word.
            QObject::connect(inner, &QMenu::aboutToShow, inner,
                             [inner, &one] { followEntries(inner->actions(), one); });
            action = target.addMenu(inner);
        }
        action->setObjectName(toQt(one.name));
        followEntry(*action, one, toQt(texts[i]));
    }
}

}  // namespace

void follow(QMenuBar& bar, Menu& record, const Chosen& chosen)
{
    if (followEntries(bar.actions(), record)) {
        return;
    }
    // The old ones may be running.
    for (QAction* action : bar.actions()) {
        bar.removeAction(action);
        action->menu() != nullptr ? action->menu()->deleteLater() : action->deleteLater();
    }
    addEntries(bar, record, chosen);
}

void fill(QMenu& menu, Menu& record, const Chosen& chosen)
{
    addEntries(menu, record, chosen);
}

bool openByLetter(QMenuBar& bar, char32_t letter)
{
    const std::u32string wanted = toCodePoints(upper(fromCodePoints(std::u32string(1, letter))));
    for (QAction* action : bar.actions()) {
        if (!wanted.empty() && action->isVisible() && action->isEnabled() &&
            mnemonic(fromQt(action->text())) == wanted.front()) {
            bar.setFocus(Qt::MenuBarFocusReason);
            bar.setActiveAction(action);
            if (QMenu* menu = action->menu()) {
                const QList<QAction*> entries = menu->actions();
                const auto first = std::ranges::find_if(
                    entries, [](const QAction* entry) { return entry->isVisible() && entry->isEnabled(); });
                if (first != entries.end()) {
                    menu->setActiveAction(*first);
                }
            }
            return true;
        }
    }
    return false;
}

}  // namespace bravona::menus
