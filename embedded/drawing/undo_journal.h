#pragma once
// The undo journal: what a change replaced, newest last. The owner of this folder fills it in.
