#pragma once
// The release of the host interface that a module is built for.

// The host asks each module before it starts it, and does not start one without this function or with another
// number. It is linked into the module with the host's own part of it (the target module_api).
extern "C" int acrxGetApiVersion();

namespace cad {

inline constexpr char kApiVersionFunction[] = "acrxGetApiVersion";
inline constexpr int kApiVersion = 1;

}  // namespace cad
