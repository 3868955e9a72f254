// The version that every program of the project tells.
#pragma once

namespace vistaplot {

inline constexpr const char* kVersion = "3.4.1";

}  // namespace vistaplot
