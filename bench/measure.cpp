// Runs one command and prints what it took: "SECONDS PEAK_KIB EXIT_STATUS", the time from the start of the
// process to its end. A program of its own because a child's peak memory includes that of the process that
// forked it, and this one is small. The command's output goes to /dev/null: measure COMMAND ARGUMENT...

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    execvp(argv[1], argv + 1);
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child) return 2;
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  std::printf("%.6f %ld %d\n", elapsed.count(), usage.ru_maxrss,
              WIFEXITED(status) ? WEXITSTATUS(status) : 128);
  return 0;
}
