// Texts of hosts may be missing.
#pragma once

namespace ostrel {

constexpr const char* orEmpty(const char* text) { return text == nullptr ? "" : text; }

}  // namespace ostrel
