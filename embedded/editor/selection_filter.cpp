#include "embedded/editor/selection_filter.h"

#include <algorithm>

#include "base/fold.h"
#include "embedded/editor/selection_condition.h"

namespace cad {
namespace {

using Node = SelectionFilter::Node;
using Nodes = std::vector<std::unique_ptr<Node>>;

enum class Joint { kAnd, kOr, kXor, kNot };

class JointNode : public Node {
 public:
  JointNode(Joint joint, Nodes children) : joint_(joint), children_(std::move(children)) {}

  Verdict ofSignature(const Drawing& drawing, const Signature& signature) const override {
    if (joint_ == Joint::kXor) {
      const Verdict a = children_[0]->ofSignature(drawing, signature);
      const Verdict b = children_[1]->ofSignature(drawing, signature);
      if (a == Verdict::kOpen || b == Verdict::kOpen) return Verdict::kOpen;
      return a != b ? Verdict::kYes : Verdict::kNo;
    }
    const Verdict decisive = joint_ == Joint::kOr ? Verdict::kYes : Verdict::kNo;
    Verdict all = joint_ == Joint::kOr ? Verdict::kNo : Verdict::kYes;
    for (const auto& child : children_) {
      const Verdict one = child->ofSignature(drawing, signature);
      if (one == Verdict::kOpen) all = Verdict::kOpen;
      if (one != decisive) continue;
      all = decisive;
      break;
    }
    if (joint_ != Joint::kNot || all == Verdict::kOpen) return all;
    return all == Verdict::kYes ? Verdict::kNo : Verdict::kYes;
  }

  bool ofEntity(const Drawing& drawing, RecordId entity) const override {
    const auto holds = [&](const auto& child) { return child->ofEntity(drawing, entity); };
    switch (joint_) {
      case Joint::kOr:
        return std::any_of(children_.begin(), children_.end(), holds);
      case Joint::kXor:
        return holds(children_[0]) != holds(children_[1]);
      case Joint::kNot:
        return !holds(children_[0]);
      default:
        return std::all_of(children_.begin(), children_.end(), holds);
    }
  }

 private:
  Joint joint_;
  Nodes children_;
};

struct JointName {
  const wchar_t* name;
  Joint joint;
  std::size_t least, most;  // operands
};
constexpr JointName kJoints[] = {{L"AND", Joint::kAnd, 1, 0xFFFF},
                                 {L"OR", Joint::kOr, 1, 0xFFFF},
                                 {L"XOR", Joint::kXor, 2, 2},
                                 {L"NOT", Joint::kNot, 1, 1}};
constexpr int kDeepest = 200;  // nested operators; more would be a runaway chain

class FilterParser {
 public:
  explicit FilterParser(const resbuf* chain) : at_(chain) {}

  // Operands up to the end of the chain or, inside an operator, to its end mark.
  bool operands(const JointName* open, Nodes& out) {
    if (++depth_ > kDeepest) return false;
    while (at_ != nullptr) {
      if (at_->restype != -4) {
        if (!test(Relation::kEqual, out)) return false;
        continue;
      }
      if (at_->resval.rstring == nullptr) return false;
      const std::wstring mark = base::upper(at_->resval.rstring);
      at_ = at_->rbnext;
      if (open != nullptr && mark == std::wstring(open->name) + L">") {
        --depth_;
        return out.size() >= open->least && out.size() <= open->most;
      }
      const bool isJoint = mark.size() > 2 && mark.front() == L'<';
      if (!(isJoint ? joint(mark.substr(1), out) : relation(mark, out))) return false;
    }
    --depth_;
    return open == nullptr;
  }

 private:
  bool joint(const std::wstring& name, Nodes& out) {
    for (const JointName& each : kJoints) {
      if (name != each.name) continue;
      Nodes children;
      if (!operands(&each, children)) return false;
      out.push_back(std::make_unique<JointNode>(each.joint, std::move(children)));
      return true;
    }
    return false;
  }

  bool relation(const std::wstring& mark, Nodes& out) {
    const std::optional<Relation> found = relationOf(mark);
    return found && at_ != nullptr && at_->restype != -4 && test(*found, out);
  }

  bool test(Relation relation, Nodes& out) {
    std::unique_ptr<Node> made = makeTest(*at_, relation);
    if (!made) return false;
    out.push_back(std::move(made));
    at_ = at_->rbnext;
    return true;
  }

  const resbuf* at_;
  int depth_ = 0;
};

}  // namespace

std::unique_ptr<SelectionFilter> SelectionFilter::parse(const resbuf* chain) {
  Nodes nodes;
  if (!FilterParser(chain).operands(nullptr, nodes)) return nullptr;
  return std::make_unique<SelectionFilter>(std::make_unique<JointNode>(Joint::kAnd, std::move(nodes)));
}

std::vector<RecordId> SelectionFilter::select(const Drawing& drawing) const {
  std::vector<bool> wanted(drawing.signatureCount());
  std::vector<bool> open(drawing.signatureCount());
  for (SignatureId id = 0; id < wanted.size(); ++id) {
    const Verdict verdict = root_->ofSignature(drawing, drawing.signature(id));
    wanted[id] = verdict != Verdict::kNo;
    open[id] = verdict == Verdict::kOpen;
  }
  std::vector<RecordId> out;
  drawing.forEachSpaceEntity(wanted, [&](RecordId entity) {
    if (!open[drawing.record(entity).signature] || root_->ofEntity(drawing, entity)) out.push_back(entity);
  });
  return out;
}

}  // namespace cad
