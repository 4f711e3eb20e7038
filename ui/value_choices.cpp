#include "ui/value_choices.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <memory>

#include "base/files.h"
#include "base/fold.h"
#include "base/lineweights.h"
#include "base/numbers.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "platform/settings.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Texts = std::vector<std::wstring>;

constexpr const wchar_t* kTextHeights[] = {L"2.24", L"3.15", L"4.5", L"6.3", L"9.0"};
constexpr const wchar_t* kTransparencies[] = {L"ByLayer", L"ByBlock", L"0",  L"10", L"20", L"30",
                                              L"40",      L"50",      L"60", L"70", L"80", L"90"};

bool isByOther(std::wstring_view text) {
  return base::equalFolded(text, L"ByLayer") || base::equalFolded(text, L"ByBlock");
}

template <class Table, class Iterator>
Texts recordNames() {
  AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
  AcDbSymbolTablePointer<Table> table(drawing, AcDb::kForRead);
  Iterator* started = nullptr;
  if (table.openStatus() != Acad::eOk || table->newIterator(started) != Acad::eOk) return {};
  Texts names;
  for (const std::unique_ptr<Iterator> iterator(started); !iterator->done(); iterator->step()) {
    AcDbObjectId id;
    if (iterator->getRecordId(id) != Acad::eOk) continue;
    AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
    AcString name;
    if (record.openStatus() != Acad::eOk || record->getName(name) != Acad::eOk) continue;
    if (*name.constPtr() != L'\0') names.emplace_back(name.constPtr());
  }
  return names;
}

}  // namespace

void addMissing(Texts& list, const Texts& names) {
  for (const std::wstring& name : names) {
    const bool known = std::ranges::any_of(
        list, [&name](const std::wstring& present) { return base::equalFolded(present, name); });
    if (!known) list.push_back(name);
  }
}

Texts colorChoices(const ChoiceContext& context) {
  Texts texts;
  if (!context.withholdsByOther) texts = {colorText(kColorByBlock), colorText(kColorByLayer)};
  for (int number = 1; number <= 7; ++number) texts.push_back(colorText(number));
  return texts;
}

// A setting says for each place in the list whether it is offered, not which height.
Texts textHeightChoices(const ChoiceContext&) {
  const int count = readCommonInteger(L"KivTextHeight/KivTextHeightLot", 0);
  if (count <= 0) return {std::begin(kTextHeights), std::end(kTextHeights)};
  Texts texts;
  for (int index = 0; index < std::min(count, static_cast<int>(std::size(kTextHeights))); ++index) {
    wchar_t key[32];
    std::swprintf(key, std::size(key), L"KivTextHeight/Par%02d", index);
    if (base::leadingReal(readCommonText(key, L"-1")) > 0) texts.emplace_back(kTextHeights[index]);
  }
  return texts;
}

Texts lineweightChoices(const ChoiceContext& context) {
  Texts texts;
  for (const base::Lineweight& weight : base::lineweights()) {
    if (!context.withholdsByOther || !isByOther(weight.text)) texts.emplace_back(weight.text);
  }
  return texts;
}

// Of a layer "ByLayer" is offered all the same; "ByBlock" and "0" are not.
Texts transparencyChoices(const ChoiceContext& context) {
  Texts texts(std::begin(kTransparencies), std::end(kTransparencies));
  if (context.withholdsByOther)
    std::erase_if(texts, [](const std::wstring& text) { return text == L"ByBlock" || text == L"0"; });
  return texts;
}

Texts percentChoices() {
  Texts texts(std::begin(kTransparencies), std::end(kTransparencies));
  std::erase_if(texts, isByOther);
  return texts;
}

Texts switchChoices(const ChoiceContext&) { return {L"ON", L"OFF"}; }

Texts layerChoices(const ChoiceContext&) { return recordNames<AcDbLayerTable, AcDbLayerTableIterator>(); }

Texts linetypeChoices(const ChoiceContext& context) {
  Texts names = recordNames<AcDbLinetypeTable, AcDbLinetypeTableIterator>();
  if (context.withholdsByOther) std::erase_if(names, isByOther);
  return names;
}

Texts textStyleChoices(const ChoiceContext&) {
  return recordNames<AcDbTextStyleTable, AcDbTextStyleTableIterator>();
}

Texts blockChoices() {
  Texts names = recordNames<AcDbBlockTable, AcDbBlockTableIterator>();
  std::erase_if(names, [](const std::wstring& name) { return name.starts_with(L'*'); });
  return names;
}

Texts textListChoices(const ChoiceContext& context) {
  return base::filesWithExtension(context.listFolder, L".LIST");
}

}  // namespace kiv
