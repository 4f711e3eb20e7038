#include "siblings/KivFile/open_dialog.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "base/fold.h"
#include "base/paths.h"
#include "platform/screen_scale.h"
#include "siblings/KivFile/resource.h"

namespace kiv {
namespace {

constexpr int kRefresh = 100;             // milliseconds
constexpr int kMostDrawings = INT16_MAX;  // the count that is handed over has 16 bits

// By base::SaveFormat.
constexpr int kFormatButtons[] = {IDC_OPEN_DWG, IDC_OPEN_DXF, IDC_OPEN_DWT};
constexpr const wchar_t* kFormatNames[] = {L"DWG", L"DXF", L"DWT"};

std::wstring reasonText(const base::Failure& failure) {
  using base::FailureKind;
  switch (failure.kind) {
    case FailureKind::kNoSuchFile:
    case FailureKind::kNoSuchFolder:
      return L"フォルダがありません";
    case FailureKind::kNotAFolder:
      return L"フォルダではありません";
    case FailureKind::kPermissionDenied:
      return L"読み込みが許可されていません";
    default:
      return failure.reason;
  }
}

std::wstring countText(std::size_t count) { return std::to_wstring(count) + L" 件"; }

}  // namespace

OpenDialog::OpenDialog(std::wstring title, std::wstring startFolder, const SaveableFormats& saveable)
    : Dialog(IDD_OPEN), title_(std::move(title)), saveable_(saveable), settings_(readOpenSettings()) {
  if (settings_.folder.empty()) settings_.folder = std::move(startFolder);
}

ListView& OpenDialog::list() { return window().list(IDC_OPEN_LIST); }

void OpenDialog::onInit() {
  if (!title_.empty()) window().setTitle(title_);
  setColumns();
  holdControls();
  if (settings_.width > 0 && settings_.height > 0)
    window().setSize(scaled(settings_.width), scaled(settings_.height));
  offerFormats();
  window().setText(IDC_OPEN_FILTER, settings_.filter);
  tree_ = std::make_unique<FolderTree>(window().tree(IDC_OPEN_TREE));
  window().focus(IDC_OPEN_LIST);
  enter(settings_.folder);
  window().setTimer(kRefresh);
}

void OpenDialog::setColumns() {
  list().setColumns({{L"名前", scaled(164)},
                     {L"ﾊﾞｰｼﾞｮﾝ", scaled(64)},
                     {L"ｻｲｽﾞ", scaled(68), true},
                     {L"更新日時", scaled(120)}});
}

void OpenDialog::holdControls() {
  constexpr unsigned kAlongBottom = kLeftEdge | kBottomEdge, kInCorner = kRightEdge | kBottomEdge;
  window().holdTo(IDC_OPEN_FOLDER, kLeftEdge | kTopEdge | kRightEdge);
  window().holdTo(IDC_OPEN_RELOAD, kRightEdge | kTopEdge);
  window().holdTo(IDC_OPEN_TREE, kLeftEdge | kTopEdge | kBottomEdge);
  window().holdTo(IDC_OPEN_FILTER, kLeftEdge | kTopEdge | kRightEdge);
  window().holdTo(IDC_OPEN_ALL, kRightEdge | kTopEdge);
  window().holdTo(IDC_OPEN_LIST, kLeftEdge | kTopEdge | kRightEdge | kBottomEdge);
  window().holdTo(IDC_OPEN_STATE, kAlongBottom | kRightEdge);
  for (const int id : {IDC_OPEN_COUNT, IDOK, IDCANCEL}) window().holdTo(id, kInCorner);
  for (const int id : {IDC_OPEN_FORMAT_LABEL, IDC_OPEN_DWG, IDC_OPEN_DXF, IDC_OPEN_DWT, IDC_OPEN_FORMAT_NOTE})
    window().holdTo(id, kAlongBottom);
}

// What cannot be saved is grey; the line beside says so.
void OpenDialog::offerFormats() {
  std::wstring missing;
  for (std::size_t each = 0; each < saveable_.size(); ++each) {
    window().enable(kFormatButtons[each], saveable_[each]);
    if (!saveable_[each]) missing += (missing.empty() ? L"" : L"、") + std::wstring(kFormatNames[each]);
  }
  auto format = static_cast<std::size_t>(settings_.format);
  const auto first = std::find(saveable_.begin(), saveable_.end(), true);
  if (!saveable_[format] && first != saveable_.end())
    format = static_cast<std::size_t>(first - saveable_.begin());
  settings_.format = static_cast<base::SaveFormat>(format);
  window().check(kFormatButtons[format], true);
  if (!missing.empty())
    window().setText(IDC_OPEN_FORMAT_NOTE, L"このCADは" + missing + L"形式で保存できません");
}

// --- The folder

void OpenDialog::enter(const std::wstring& folder) {
  settings_.folder = folder;
  window().setText(IDC_OPEN_FOLDER, folder);
  wanted_.clear();
  wantedFocus_.clear();
  startReading();
  tree_->show(folder);
}

void OpenDialog::enterTyped() {
  std::wstring typed(base::trim(window().text(IDC_OPEN_FOLDER)));
  std::erase(typed, L'"');  // as the system copies paths
  if (!typed.empty()) enter(base::fullPath(typed));
  window().focus(IDC_OPEN_LIST);
}

bool OpenDialog::hasTypedFolder() {
  const std::wstring typed = window().text(IDC_OPEN_FOLDER);
  return !base::trim(typed).empty() && typed != settings_.folder;
}

void OpenDialog::reload() {
  rememberChosen();
  tree_->renew();
  startReading();
}

void OpenDialog::startReading() {
  reading_.reset();  // the thread of the folder before ends
  drawings_.clear();
  rows_.clear();
  list().clear();
  failure_.reset();
  probed_ = 0;
  isListed_ = hasEnded_ = false;
  reading_ = std::make_unique<DrawingReading>(settings_.folder);
  refill();
  takeNews();
}

void OpenDialog::onTimer() {
  if (std::exchange(isSelectionDue_, false)) takeSelection();
  tree_->takeNews();
  takeNews();
}

void OpenDialog::takeNews() {
  if (hasEnded_ || !reading_) return;
  DrawingReading::News news = reading_->takeNews();
  const bool isNowListed = news.isListed && !isListed_;
  isListed_ = news.isListed;
  hasEnded_ = news.hasEnded;
  if (news.failure) failure_ = std::move(news.failure);
  append(std::move(news.found));
  if (isNowListed) refill();
  showProbed(news.probed);
  // Rows that moved about under the pointer meanwhile would be worse than their being unsorted for a while.
  if (hasEnded_ && settings_.order.column == DrawingColumn::kRelease) refill();
  showState();
}

void OpenDialog::showProbed(const std::vector<std::pair<std::size_t, DrawingRelease>>& probed) {
  if (probed.empty()) return;
  std::vector<int> rowOf(drawings_.size(), -1);
  for (std::size_t row = 0; row < rows_.size(); ++row) rowOf[rows_[row]] = static_cast<int>(row);
  constexpr int kColumn = static_cast<int>(DrawingColumn::kRelease);
  for (const auto& [at, release] : probed) {
    drawings_[at].release = release;
    if (rowOf[at] >= 0) list().setCell(rowOf[at], kColumn, releaseText(release));
  }
  probed_ += probed.size();
}

// --- The list

// They stand where they are while a person may point at them: they are sorted once all are there.
void OpenDialog::append(std::vector<ListedDrawing> found) {
  if (found.empty()) return;
  list().setRedraw(false);
  for (ListedDrawing& drawing : found) {
    if (isWanted(drawing.name, settings_.filter)) {
      rows_.push_back(drawings_.size());
      list().addRow(cellsOf(drawing));
    }
    drawings_.push_back(std::move(drawing));
  }
  list().setRedraw(true);
  takeSelection();
}

void OpenDialog::rememberChosen() {
  const auto nameIn = [this](int row) { return drawings_[rows_[static_cast<std::size_t>(row)]].name; };
  for (const int row : list().selectedRows()) wanted_.insert(nameIn(row));
  if (list().focused() >= 0) wantedFocus_ = nameIn(list().focused());
}

void OpenDialog::refill() {
  rememberChosen();  // a filter that is being typed may hide all for a moment
  rows_ = arranged(drawings_, settings_.filter, settings_.order);
  ListView& view = list();
  view.setRedraw(false);
  view.clear();
  std::vector<int> selected;
  int focused = -1;
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const ListedDrawing& drawing = drawings_[rows_[row]];
    if (wanted_.contains(drawing.name)) selected.push_back(static_cast<int>(row));
    if (drawing.name == wantedFocus_) focused = static_cast<int>(row);
    view.addRow(cellsOf(drawing));
  }
  view.selectRows(selected);
  if (focused >= 0) view.focus(focused);
  view.setSortMark(static_cast<int>(settings_.order.column), settings_.order.ascending);
  view.setRedraw(true);
  takeSelection();
}

void OpenDialog::onHeaderClicked(int id, int column) {
  if (id != IDC_OPEN_LIST || column < 0 || column >= kDrawingColumns) return;
  const auto wanted = static_cast<DrawingColumn>(column);
  settings_.order = {wanted, settings_.order.column != wanted || !settings_.order.ascending};
  refill();
}

void OpenDialog::selectAll() {
  std::vector<int> rows(rows_.size());
  for (std::size_t row = 0; row < rows.size(); ++row) rows[row] = static_cast<int>(row);
  wanted_.clear();
  list().selectRows(rows);
  window().focus(IDC_OPEN_LIST);
  takeSelection();
}

void OpenDialog::takeSelection() {
  const int chosen = list().selectedCount();
  std::wstring text =
      L"選択 " + countText(static_cast<std::size_t>(chosen)) + L" / " + countText(rows_.size());
  if (rows_.size() < drawings_.size()) text += L"（全 " + countText(drawings_.size()) + L"）";
  window().setText(IDC_OPEN_COUNT, text);
  window().enable(IDC_OPEN_ALL, !rows_.empty());
  const bool canSave = saveable_[static_cast<std::size_t>(settings_.format)];
  window().enable(IDOK, hasTypedFolder() || (canSave && chosen > 0 && chosen <= kMostDrawings));
  showState();
}

std::wstring OpenDialog::stateText() const {
  if (failure_) return L"フォルダを読めません: " + reasonText(*failure_);
  if (!isListed_) return L"フォルダを読んでいます... " + countText(drawings_.size());
  if (drawings_.empty()) return L"このフォルダに図面はありません";
  if (!hasEnded_)
    return L"ﾊﾞｰｼﾞｮﾝを調べています... " + std::to_wstring(probed_) + L" / " + countText(drawings_.size());
  return rows_.empty() ? L"絞り込みに合う図面はありません" : L"";
}

void OpenDialog::showState() {
  std::wstring text = stateText();
  if (list().selectedCount() > kMostDrawings)
    text = L"一度に選択できるのは " + countText(kMostDrawings) + L"までです";
  if (text != window().text(IDC_OPEN_STATE)) window().setText(IDC_OPEN_STATE, text);
}

// --- What the person does

void OpenDialog::onSelected(int id) {
  if (id == IDC_OPEN_TREE) {
    const std::wstring folder = tree_->folderOf(window().tree(id).caret());
    if (!folder.empty() && folder != settings_.folder) enter(folder);
  } else if (id == IDC_OPEN_LIST) {
    wanted_.clear();
    // Of the many rows that Shift takes only the first is heeded at once.
    if (!std::exchange(isSelectionDue_, true)) takeSelection();
  }
}

void OpenDialog::onEdited(int id) {
  if (id == IDC_OPEN_FOLDER) takeSelection();
  if (id != IDC_OPEN_FILTER) return;
  settings_.filter = window().text(id);
  refill();
}

void OpenDialog::onOpening(int id, TreeItem item) {
  if (id == IDC_OPEN_TREE) tree_->open(item);
}

void OpenDialog::onDoubleClicked(int id) {
  if (id != IDC_OPEN_LIST || list().selectedCount() == 0) return;
  takeSelection();
  accept();
}

bool OpenDialog::onKey(int id, Key key) {
  if (key == Key::kF5) {
    reload();
    return true;
  }
  if (id != IDC_OPEN_LIST || key != Key::kSelectAll) return false;
  selectAll();
  return true;
}

void OpenDialog::onCommand(int command) {
  switch (command) {
    case IDC_OPEN_RELOAD:
      return reload();
    case IDC_OPEN_ALL:
      return selectAll();
    case IDC_OPEN_DWG:
    case IDC_OPEN_DXF:
    case IDC_OPEN_DWT: {
      const auto* button = std::find(std::begin(kFormatButtons), std::end(kFormatButtons), command);
      settings_.format = static_cast<base::SaveFormat>(button - std::begin(kFormatButtons));
      return takeSelection();
    }
    case IDOK:
      return hasTypedFolder() ? enterTyped() : accept();
    case IDCANCEL:
      rememberView();
      [[fallthrough]];
    default:
      return Dialog::onCommand(command);
  }
}

void OpenDialog::accept() {
  if (!window().isEnabled(IDOK) || hasTypedFolder()) return;
  choice_.folder = settings_.folder;
  choice_.format = settings_.format;
  choice_.names.clear();
  for (const int row : list().selectedRows())
    choice_.names.push_back(drawings_[rows_[static_cast<std::size_t>(row)]].name);
  if (choice_.names.empty()) return;
  rememberView();
  writeChoice(settings_);
  end(IDOK);
}

void OpenDialog::rememberView() {
  const Rect place = window().place();
  const auto unscaled = [](int pixels) { return (pixels * kReferenceDpi + screenDpi() / 2) / screenDpi(); };
  settings_.width = unscaled(place.right - place.left);
  settings_.height = unscaled(place.bottom - place.top);
  writeView(settings_);
}

}  // namespace kiv
