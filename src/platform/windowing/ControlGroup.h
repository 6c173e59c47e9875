#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "platform/windowing/Control.h"

namespace bravona {

// Controls that several screens have alike, with the names that they carry there. A form takes them in by
// `add(group)`; how they stand in its layout is a matter of the group's own functions. Not copyable, as its controls.
class ControlGroup {
public:
    struct Part {
        std::string name;
        int index;  // -1 outside an array
        Control* control;
    };
    ControlGroup() = default;
    virtual ~ControlGroup() = default;
    ControlGroup(const ControlGroup&) = delete;
    ControlGroup& operator=(const ControlGroup&) = delete;

    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }

protected:
    void add(std::string name, Control& control, int index = -1)
    {
        parts_.push_back({std::move(name), index, &control});
    }
    template <class C, std::size_t N>
    void add(const std::string& name, std::array<C, N>& controls)
    {
        for (std::size_t i = 0; i < N; ++i)
            add(name, controls[i], static_cast<int>(i));
    }
    void add(const ControlGroup& group) { parts_.insert(parts_.end(), group.parts_.begin(), group.parts_.end()); }

private:
    std::vector<Part> parts_;
};

}  // namespace bravona
