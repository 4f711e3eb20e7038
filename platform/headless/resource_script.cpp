#include "platform/headless/resource_script.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
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

template <class Resource>
void append(std::vector<Resource>& all, std::vector<Resource>& more) {
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

ResourceScript readOwnScripts() {
  ResourceScript all;
  for (const ResourceText* each = ResourceText::first; each; each = each->next) {
    auto script =
        parseResourceScript(base::utf8::decode(each->script).text, base::utf8::decode(each->header).text);
    if (!script) {
      const std::string reason = base::utf8::encode(script.failure().text()).bytes;
      std::fprintf(stderr, "The dialogs cannot be read: %s\n", reason.c_str());
      continue;
    }
    append(all.dialogs, script.value().dialogs);
    append(all.menus, script.value().menus);
    append(all.icons, script.value().icons);
    append(all.accessKeys, script.value().accessKeys);
  }
  return all;
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
  static const ResourceScript script = readOwnScripts();
  return script;
}

}  // namespace kiv::headless
