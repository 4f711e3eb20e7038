#pragma once
// Renaming by wildcard patterns: what the wildcards of one pattern matched is put into another.

#include <optional>
#include <string>
#include <string_view>

namespace kiv {

// `name` must match `from` by the host's wildcard match (unless `from` is "*"). A `to` without "*" and "?"
// is the new name as it stands. Otherwise both patterns must hold the same wildcards in the same order, and
// each wildcard of `to` becomes what the one of `from` stands for in `name`. Case is ignored in matching;
// what is taken over from `name` keeps its case. Nothing when the patterns do not fit.
std::optional<std::wstring> renameByPattern(const std::wstring& name, const std::wstring& from,
                                            const std::wstring& to);

}  // namespace kiv
