#include "platform/windowing/Schermate.h"

#include <algorithm>

#include "platform/values/Errore.h"

namespace bravona {

void Schermate::add(const std::string& name, Factory factory)
{
    factories_[name] = std::move(factory);
}

std::vector<std::string> Schermate::names() const
{
    std::vector<std::string> result;
    for (const auto& [name, factory] : factories_) {
        result.push_back(name);
    }
    return result;
}

bool Schermate::knows(const std::string& name) const
{
    return factories_.contains(name);
}

Form& Schermate::get(const std::string& name)
{
    if (Form* there = find(name); there != nullptr) {
        return *there;
    }
    const auto factory = factories_.find(name);
    if (factory == factories_.end()) {
        throw Errore(5, "Schermata sconosciuta: " + name);
    }
    forms_.push_back(factory->second());
    return *forms_.back();
}

Form* Schermate::find(const std::string& name) const
{
    for (const auto& form : forms_) {
        if (form->name() == name) {
            return form.get();
        }
    }
    return nullptr;
}

std::size_t Schermate::loadedCount() const
{
    return static_cast<std::size_t>(std::count_if(
        forms_.begin(), forms_.end(), [](const auto& form) { return form->loaded() && form->countsAsWindow; }));
}

std::vector<Form*> Schermate::loaded() const
{
    std::vector<Form*> found;
    for (const auto& form : forms_) {
        if (form->loaded()) {
            found.push_back(form.get());
        }
    }
    return found;
}

Form& Schermate::adopt(std::unique_ptr<Form> form)
{
    forms_.push_back(std::move(form));
    return *forms_.back();
}

void Schermate::forget(Form& form)
{
    const auto place =
        std::find_if(forms_.begin(), forms_.end(), [&](const auto& candidate) { return candidate.get() == &form; });
    if (place != forms_.end()) {
        dead_.push_back(std::move(*place));
        forms_.erase(place);
    }
}

void Schermate::clear()
{
    for (auto& form : forms_) {
        dead_.push_back(std::move(form));
    }
    forms_.clear();
    sweep();
}

void Schermate::sweep()
{
    // A destructor may let other screens go.
    while (!dead_.empty()) {
        std::vector<std::unique_ptr<Form>> going;
        going.swap(dead_);
    }
}

}  // namespace bravona
