#include "platform/headless/resource_script.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/utf8.h"
#include "platform/headless/resource_parser.h"
#include "platform/headless/resource_styles.h"
#include "platform/headless/resource_text.h"

namespace kiv::headless {
namespace {

template <class Resource>
const Resource* findId(const std::vector<Resource>& resources, int id) {
  const auto found =
      std::find_if(resources.begin(), resources.end(), [id](const Resource& each) { return each.id == id; });
  return found == resources.end() ? nullptr : &*found;
}

ResourceScript readOwnScript() {
  auto script = parseResourceScript(base::utf8::decode(resourceScriptText()).text,
                                    base::utf8::decode(resourceHeaderText()).text);
  if (script) return std::move(script.value());
  const std::string reason = base::utf8::encode(script.failure().text()).bytes;
  std::fprintf(stderr, "The dialogs cannot be read: %s\n", reason.c_str());
  return {};
}

}  // namespace

bool ResourceControl::isDefaultButton() const {
  return kind == ControlKind::kPushButton && (this->style & style::kButtonType) == style::kDefaultButton;
}

const DialogResource* ResourceScript::findDialog(int id) const { return findId(dialogs, id); }
const MenuResource* ResourceScript::findMenu(int id) const { return findId(menus, id); }

base::Result<ResourceScript> parseResourceScript(std::wstring_view script, std::wstring_view header) {
  auto headerTokens = readResourceTokens(header);
  if (!headerTokens) {
    return base::Failure{L"header, " + headerTokens.failure().place, headerTokens.failure().reason};
  }
  auto tokens = readResourceTokens(script);
  if (!tokens) return tokens.failure();
  ResourceNames names;
  if (auto status = names.add(headerTokens.value().definitions); !status) {
    return base::Failure{L"header, " + status.failure().place, status.failure().reason};
  }
  if (auto status = names.add(tokens.value().definitions); !status) return status.failure();
  return ResourceParser(std::move(tokens.value().tokens), std::move(names)).parse();
}

const ResourceScript& resourceScript() {
  static const ResourceScript script = readOwnScript();
  return script;
}

}  // namespace kiv::headless
