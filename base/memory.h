#pragma once

namespace base {

// Memory that this process frees stays with it: who does the same again and again does not ask the system for
// it each time. Large pieces go back all the same. For the whole process, and to the end.
void keepFreedMemory();

}  // namespace base
