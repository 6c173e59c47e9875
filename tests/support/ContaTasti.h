#pragma once

#include <filesystem>

namespace bravona {

// Keys that a journey presses: one for each `key` step, one for each character of a `type` step. Throws when a step
// reaches for the mouse.
int contaTasti(const std::filesystem::path& journey);

// What the invoice of five rows takes; this number only goes down.
inline constexpr int tastiFatturaCinqueRighe = 33;

}  // namespace bravona
