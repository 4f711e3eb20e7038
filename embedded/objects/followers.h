#pragma once
// What hangs on dimensions and leaders follows them: the block that shows a dimension, the hook of a leader.

#include <functional>
#include <unordered_map>
#include <unordered_set>

#include "acadstrc.h"
#include "embedded/graphics/dimensions/redraw.h"

namespace cad {

class Followers {
 public:
  // Both must outlive it.
  Followers(Drawing& drawing, DimStyles& styles)
      : drawing_(drawing), styles_(styles), redraw_(drawing, [this](std::wstring_view file) {
          return findFont ? findFont(file) : std::filesystem::path();
        }) {}
  Followers(const Followers&) = delete;
  Followers& operator=(const Followers&) = delete;

  // Told what could not follow; each dimension is named once.
  std::function<void(const base::Failure&)> remark;
  FontCatalogue::Find findFont;  // without it texts have average widths

  // A dimension or leader is open for writing from now on.
  void opened(RecordId object);
  // It is not any more: what it was changed in since then, or since it was drawn, takes effect.
  void closed(RecordId object);
  // A dimension that is open for writing is to be drawn, whatever was changed: once, when it is closed or
  // somebody asks for its block before.
  void wantDrawn(RecordId dimension);
  // Draws it now if that is wanted.
  void finish(RecordId dimension);

 private:
  struct Open {
    EditId edits = kNoEdit;  // when it was opened or drawn
    bool wanted = false;     // it is to be drawn
  };

  Record formerOf(RecordId object, const Open& open) const;
  bool looksOtherwise(RecordId dimension, const Record& former) const;
  // A dimension that cannot be drawn keeps its block, and is told.
  void draw(RecordId dimension, const Record& former);
  void follow(RecordId dimension, const Record& former);
  // The hook of a leader is as long as its arrow: its last vertex moves when that length changes.
  void moveHook(RecordId leader, const Record& former);
  void tellKept(RecordId dimension, const std::wstring& reason);
  void tell(RecordId object, const std::wstring& reason);

  Drawing& drawing_;
  DimStyles& styles_;
  DimRedraw redraw_;
  std::unordered_map<RecordId, Open> open_;
  std::unordered_set<RecordId> told_;
};

}  // namespace cad
