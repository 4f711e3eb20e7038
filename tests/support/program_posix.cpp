#include <dlfcn.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "tests/support/program.h"

namespace test_support {
namespace {

// A file without a name, open for reading and writing.
int openScratch() {
  std::string name = (std::filesystem::temp_directory_path() / "kiv-output-XXXXXX").string();
  const int file = ::mkstemp(name.data());
  ::unlink(name.c_str());
  return file;
}

std::string takeContent(int file) {
  std::string content;
  char buffer[4096];
  ::lseek(file, 0, SEEK_SET);
  for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
    content.append(buffer, static_cast<size_t>(count));
  ::close(file);
  return content;
}

[[noreturn]] void become(const std::string& program, std::vector<char*>& words, const std::string& folder,
                         int out, int err) {
  const int in = ::open("/dev/null", O_RDONLY);
  const bool ready =
      ::dup2(in, 0) == 0 && ::dup2(out, 1) == 1 && ::dup2(err, 2) == 2 && ::chdir(folder.c_str()) == 0;
  if (ready) ::execvp(program.c_str(), words.data());
  ::_exit(127);
}

}  // namespace

ProgramRun runProgram(const std::filesystem::path& program, const std::vector<std::string>& words,
                      const std::filesystem::path& folder) {
  // Nothing may be allocated between fork and exec.
  std::vector<std::string> copies = words;
  copies.insert(copies.begin(), program.string());
  std::vector<char*> pointers;
  for (std::string& word : copies) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const std::string place = folder.string();
  const int out = openScratch(), err = openScratch();
  const pid_t child = ::fork();
  if (child == 0) become(copies.front(), pointers, place, out, err);
  int status = -1;
  const bool ended = child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status);
  return {ended ? WEXITSTATUS(status) : -1, takeContent(out), takeContent(err)};
}

void* hostFunction(const char* mangledName) { return ::dlsym(RTLD_NEXT, mangledName); }

}  // namespace test_support
