#pragma once
// Programs as a test calls them, and what other libraries of its own process hold.

#include <filesystem>
#include <string>
#include <vector>

namespace test_support {

struct ProgramRun {
  int status = -1;  // exit status; -1: the program did not end by itself
  std::string out, err;
};

// Runs `program` in `folder` and waits for its end. Words are UTF-8 where names are wide text, and bytes
// elsewhere; none is changed on the way. The program's input is empty.
ProgramRun runProgram(const std::filesystem::path& program, const std::vector<std::string>& words,
                      const std::filesystem::path& folder);

// The function of this name in the embedded host's library, even when the test has its own of that name;
// null when there is none.
void* hostFunction(const char* mangledName);

}  // namespace test_support
