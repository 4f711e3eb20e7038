#pragma once
// What can be done to a node of the editing tree, and the context menu that offers it.

#include "platform/questions.h"
#include "spec/specification.h"

namespace kiv {

// Empty for the root and for a node that does not exist. Items that cannot apply to the node are greyed.
Menu contextMenu(const Specification& specification, const Node& node);

// False where the command would be refused or find nothing to work on;
// for an item kind also where a conversion would not heed it.
bool canApply(const Specification& specification, const Node& node, int command);

// Of a condition or a result: the kinds of conditions or results that can stand beside it.
Menu siblingMenu(const Specification& specification, const Node& item);

// The command that deletes the node, or everything in it when it is a section. 0: nothing to delete.
int deleteCommand(const Specification& specification, const Node& node);

// The command that edits the node; 0 unless it is an item or an entry.
int editCommand(const Specification& specification, const Node& node);

// The command that adds something under a section; 0 for other nodes, where there is a choice.
int addCommand(const Specification& specification, const Node& node);

// True when results of the setting assign dimension variables.
bool assignsVariables(const Specification& specification, const Node& setting);

}  // namespace kiv
