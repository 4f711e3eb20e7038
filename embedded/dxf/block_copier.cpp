#include "embedded/dxf/block_copier.h"

#include <algorithm>

#include "base/fold.h"
#include "embedded/drawing/dim_variable_table.h"
#include "embedded/dxf/header_variables.h"

namespace cad::dxf {
namespace {

bool isText(std::string_view type) {
  return type == "TEXT" || type == "MTEXT" || type == "ATTDEF" || type == "ATTRIB";
}

bool hasDimStyle(std::string_view type) {
  return type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE";
}

bool namesBlock(std::string_view type) { return type == "INSERT" || type == "DIMENSION"; }

// Each level takes a part of the stack; drawings nest a few.
constexpr std::size_t kDeepestNesting = 200;

}  // namespace

BlockCopier::BlockCopier(Drawing& target, DxfStorage& to, const Drawing& source, const DxfStorage& from)
    : target_(target),
      to_(to),
      source_(source),
      from_(from),
      symbols_(target, source),
      translator_(from, to, replacements_) {}

std::vector<RecordId> BlockCopier::liveEntities(RecordId block) const {
  std::vector<RecordId> live;
  for (const RecordId id : source_.entitiesOf(block))
    if (!source_.record(id).erased()) live.push_back(id);
  return live;
}

base::Result<RecordId> BlockCopier::copyModelSpace(std::wstring_view name) {
  name_ = base::upper(name);
  BlockHead head;
  if (const auto base = headerPoint(source_, from_, "INSBASE")) head.base = *base;
  return copyBlock(source_.modelSpace(), name, head);
}

base::Status BlockCopier::checkType(RecordId record) const {
  const std::string_view type = source_.typeName(record);
  const std::wstring shown(type.begin(), type.end());
  const std::optional<Version> first = firstVersionOf(type);
  if (!first) return failure(shown, L"Entities of this type are not copied between drawings");
  if (*first > to_.facts().version)
    return failure(shown, L"The drawing's version cannot hold entities of this type");
  return {};
}

base::Status BlockCopier::needBlock(std::wstring_view name) {
  const std::wstring folded = base::upper(name);
  if (replacements_.blockNames.contains(folded)) return {};
  if (folded == name_) return failure(name, L"The block would contain itself");
  const RecordId block = source_.find(Table::kBlock, name);
  if (block == kNoRecord) return failure(name, L"A block that is referred to does not exist");
  std::wstring here = blockName(source_, block);
  if (name.front() == L'*') {
    here = freeName(name);
  } else if (const RecordId own = target_.find(Table::kBlock, name); own != kNoRecord) {
    if (contains(own, name_)) return failure(name, L"The block would contain itself");
    replacements_.blockNames[folded] = here;
    return {};
  }
  if (open_.size() >= kDeepestNesting) return failure(name, L"The blocks are nested too deeply");
  if (!open_.insert(block).second) return failure(name, L"A block contains itself");
  BlockHead head;
  const RecordGroups groups(from_, source_.record(block));
  const auto coordinate = [&](int code) {
    const Group* group = groups.find(code);
    return group == nullptr ? 0.0 : realValue(*group, from_.dialect()).value_or(0);
  };
  head.base = {coordinate(10), coordinate(20), coordinate(30)};
  const base::Result<RecordId> copied = copyBlock(block, here, head);
  open_.erase(block);
  if (!copied.ok()) return copied.failure();
  replacements_.blockNames[folded] = here;
  return {};
}

bool BlockCopier::contains(RecordId block, std::wstring_view name) const {
  std::set<RecordId> seen = {block};
  std::vector<RecordId> open = {block};
  while (!open.empty()) {
    const RecordId next = open.back();
    open.pop_back();
    for (const RecordId id : target_.entitiesOf(next)) {
      if (target_.record(id).erased() || target_.typeName(id) != "INSERT") continue;
      const NameId used = target_.name(id, Property::kBlockName);
      if (used == kNoName) continue;
      if (target_.names().folded(used) == name) return true;
      const RecordId inner = target_.find(Table::kBlock, used);
      if (inner != kNoRecord && seen.insert(inner).second) open.push_back(inner);
    }
  }
  return false;
}

std::wstring BlockCopier::freeName(std::wstring_view anonymous) {
  std::wstring prefix(anonymous.substr(0, 2));
  int& number = freeNumbers_[prefix];
  std::wstring name;
  do {
    name = prefix + std::to_wstring(++number);
  } while (target_.find(Table::kBlock, std::wstring_view(name)) != kNoRecord);
  return name;
}

base::Status BlockCopier::needStyle(std::wstring_view name) {
  if (target_.find(Table::kDimStyle, name) != kNoRecord) return {};
  if (const base::Status status = symbols_.need(Table::kDimStyle, name); !status.ok()) return status;
  const RecordId from = source_.find(Table::kDimStyle, name);
  const RecordId to = target_.find(Table::kDimStyle, name);
  if (from == kNoRecord || to == kNoRecord) return {};
  if (const base::Status status = needDimVariables(from); !status.ok()) return status;
  copyDimVariables(from, to);
  return {};
}

base::Status BlockCopier::needDimVariables(RecordId record) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (!info.isName() || info.groups.number == 0) continue;
    const std::optional<Variable> value = source_.dimVariable(record, info.groups.number);
    const auto* name = value ? std::get_if<std::wstring>(&*value) : nullptr;
    if (name == nullptr || name->empty()) continue;
    base::Status status;
    if (info.type == DimType::kTextStyle) status = symbols_.need(Table::kTextStyle, *name);
    if (info.type == DimType::kLinetype) status = symbols_.need(Table::kLinetype, *name);
    if (info.type == DimType::kArrow && source_.find(Table::kBlock, std::wstring_view(*name)) != kNoRecord)
      status = needBlock(*name);
    if (!status.ok()) return status;
  }
  return {};
}

void BlockCopier::copyDimVariables(RecordId from, RecordId to) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (info.groups.number == 0 || !info.existsIn(to_.facts().version)) continue;
    // A variable whose name has no counterpart here keeps its default.
    if (const std::optional<Variable> value = source_.dimVariable(from, info.groups.number))
      static_cast<void>(target_.setDimVariable(to, info.groups.number, *value));
  }
}

base::Status BlockCopier::needNames(RecordId record) {
  const std::string_view type = source_.typeName(record);
  const RecordGroups groups(from_, source_.record(record));
  base::Status status;
  for (const Group& group : groups.all()) {
    if (!status.ok()) return status;
    if (group.code == 8 || group.code == 1003)
      status = symbols_.need(Table::kLayer, from_.decode(group.value));
    else if (group.code == 6)
      status = symbols_.need(Table::kLinetype, from_.decode(group.value));
    else if (group.code == 7 && isText(type))
      status = symbols_.need(Table::kTextStyle, from_.decode(group.value));
    else if (group.code == 3 && hasDimStyle(type))
      status = needStyle(from_.decode(group.value));
    else if (group.code == 1001)
      status = symbols_.need(Table::kAppId, from_.decode(group.value));
    else if (group.code == 2 && namesBlock(type)) {
      const std::wstring name = from_.decode(group.value);
      const bool optional = type == "DIMENSION";
      if (!name.empty() && !(optional && source_.find(Table::kBlock, std::wstring_view(name)) == kNoRecord))
        status = needBlock(name);
    }
  }
  return status;
}

base::Status BlockCopier::need(RecordId entity) {
  base::Status status = checkType(entity);
  if (status.ok()) status = needNames(entity);
  if (status.ok() && hasDimStyle(source_.typeName(entity))) status = needDimVariables(entity);
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    if (status.ok()) status = checkType(sub);
    if (status.ok()) status = needNames(sub);
  }
  return status;
}

void BlockCopier::mapHandle(RecordId record) {
  const std::optional<Handle> old = source_.handle(record);
  if (!old) return;
  if (const std::optional<Handle> fresh = target_.takeHandle()) replacements_.handles[*old] = *fresh;
}

std::optional<Handle> BlockCopier::newHandle(RecordId record) {
  const std::optional<Handle> old = source_.handle(record);
  const auto found = old ? replacements_.handles.find(*old) : replacements_.handles.end();
  return found != replacements_.handles.end() ? found->second : target_.takeHandle();
}

base::Result<RecordId> BlockCopier::copyBlock(RecordId block, std::wstring_view name,
                                              const BlockHead& given) {
  const std::vector<RecordId> entities = liveEntities(block);
  BlockHead head = given;
  // Everything that is named comes first: its records may not stand inside this block.
  for (const RecordId entity : entities) {
    if (const base::Status status = need(entity); !status.ok()) return status.failure();
    if (source_.typeName(entity) == "ATTDEF") head.hasAttributes = true;
  }
  for (const RecordId entity : entities) {
    mapHandle(entity);
    for (const RecordId sub : source_.subRecordsOf(entity)) mapHandle(sub);
  }
  BlockWriter writer(target_, to_);
  if (const base::Status status = writer.open(name, head); !status.ok()) return status.failure();
  for (const RecordId entity : entities)
    if (const base::Status status = copyEntity(writer, entity); !status.ok()) return status.failure();
  return writer.close();
}

base::Status BlockCopier::copyEntity(BlockWriter& writer, RecordId entity) {
  const std::optional<Handle> handle = newHandle(entity);
  RecordBuilder builder = writer.begin(source_.typeName(entity), handle);
  {
    const RecordGroups groups(from_, source_.record(entity));
    if (const base::Status status = translator_.translate(groups, builder); !status.ok()) return status;
  }
  const RecordId copy = writer.addEntity(builder);
  for (const RecordId sub : source_.subRecordsOf(entity)) {
    RecordBuilder part = writer.beginSub(source_.typeName(sub), newHandle(sub), handle);
    const RecordGroups groups(from_, source_.record(sub));
    if (const base::Status status = translator_.translate(groups, part); !status.ok()) return status;
    writer.addSub(copy, part);
  }
  if (hasDimStyle(source_.typeName(entity))) copyDimVariables(entity, copy);
  return {};
}

}  // namespace cad::dxf
