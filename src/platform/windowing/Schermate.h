#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/windowing/Form.h"

namespace bravona {

// The screen registry: makes each screen once, by name, and keeps it until it is unloaded.
class Schermate {
public:
    using Factory = std::function<std::unique_ptr<Form>()>;
    void add(const std::string& name, Factory factory);
    // Known at all: screens that are not yet there have their commands disabled.
    [[nodiscard]] bool knows(const std::string& name) const;
    [[nodiscard]] std::vector<std::string> names() const;  // of all that are known, in order
    // The screen, made when there is none. Errore 5 for an unknown name.
    Form& get(const std::string& name);
    // The screen as the interface that it implements.
    template <class Interface>
    Interface& as(const std::string& name)
    {
        return dynamic_cast<Interface&>(get(name));
    }
    [[nodiscard]] Form* find(const std::string& name) const;  // nullptr when it was not made
    // Loaded windows, hidden ones too, previews aside.
    [[nodiscard]] std::size_t loadedCount() const;
    [[nodiscard]] std::vector<Form*> loaded() const;

    // Takes a screen that belongs to nobody else (a preview), so that it lives until it is unloaded.
    Form& adopt(std::unique_ptr<Form> form);
    // Forgets an unloaded screen; it is destroyed at the next `sweep`, when none of its handlers can be running.
    void forget(Form& form);
    void sweep();
    // Destroys every screen without asking: the session that they belong to goes.
    void clear();

private:
    std::map<std::string, Factory> factories_;
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> dead_;
};

}  // namespace bravona
