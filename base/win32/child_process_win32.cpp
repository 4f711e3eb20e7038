#include "base/child_process.h"

#include <windows.h>

#include <atomic>
#include <bit>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

#include "base/file_errors.h"
#include "base/line_buffer.h"
#include "base/win32/error_win32.h"

namespace base {
namespace {

bool writeAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    if (WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

bool readSome(HANDLE file, LineBuffer& text) {
  char buffer[1 << 14];
  DWORD count = 0;
  if (ReadFile(file, buffer, sizeof buffer, &count, nullptr) == 0 || count == 0) return false;
  text.add({buffer, count});
  return true;
}

std::atomic<bool> isInterrupted = false;
std::condition_variable* wakened = nullptr;  // by an interruption; of the group that lives

// In a thread of its own. What was begun ends with the process: the job holds the children.
BOOL WINAPI noteInterruption(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  if (isInterrupted.exchange(true)) return FALSE;
  wakened->notify_all();
  return TRUE;
}

class StandardChannel : public RequestChannel {
 public:
  std::optional<std::string> receive() override {
    for (;;) {
      if (auto line = received_.take()) return line;
      if (!readSome(GetStdHandle(STD_INPUT_HANDLE), received_)) return std::nullopt;
    }
  }
  bool answer(std::string_view line) override {
    return writeAll(GetStdHandle(STD_OUTPUT_HANDLE), std::string(line) + '\n');
  }

 private:
  LineBuffer received_;
};

// By the rules by which programs take their command line apart.
std::wstring quoted(const std::wstring& word) {
  std::wstring text = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') text.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    text += c;
  }
  return text.append(backslashes, L'\\') + L'"';
}

std::wstring ownProgram() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

struct Child {
  HANDLE process = nullptr;
  HANDLE requests = nullptr;
  unsigned long number = 0;  // the system's
  std::thread reader;
};

class StartedGroup : public ChildGroup {
 public:
  explicit StartedGroup(ChildWork work) : work_(std::move(work)), job_(CreateJobObjectW(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    wakened = &arrived_;
    SetConsoleCtrlHandler(noteInterruption, TRUE);
  }
  StartedGroup(const StartedGroup&) = delete;
  StartedGroup& operator=(const StartedGroup&) = delete;
  ~StartedGroup() override {
    SetConsoleCtrlHandler(noteInterruption, FALSE);
    for (auto& [number, child] : children_) TerminateProcess(child.process, 1);
    for (auto& [number, child] : children_) close(child);
    CloseHandle(job_);
  }

  Result<int> start() override {
    HANDLE theirRequests, requests, answers, theirAnswers;
    if (CreatePipe(&theirRequests, &requests, nullptr, 0) == 0) return lastFailure();
    if (CreatePipe(&answers, &theirAnswers, nullptr, 0) == 0) {
      const Failure failure = lastFailure();
      CloseHandle(theirRequests);
      CloseHandle(requests);
      return failure;
    }
    Child child;
    child.requests = requests;
    Status launched = launch(child, theirRequests, theirAnswers);
    CloseHandle(theirRequests);
    CloseHandle(theirAnswers);
    if (!launched) {
      CloseHandle(requests);
      CloseHandle(answers);
      return launched.failure();
    }
    const int number = ++started_;
    child.reader =
        std::thread([this, number, answers, process = child.process] { read(number, answers, process); });
    children_.emplace(number, std::move(child));
    return number;
  }

  void send(int number, std::string_view line) override {
    const auto child = children_.find(number);
    if (child != children_.end())
      static_cast<void>(writeAll(child->second.requests, std::string(line) + '\n'));
  }

  void kill(int number) override {
    const auto child = children_.find(number);
    if (child != children_.end()) TerminateProcess(child->second.process, 1);
  }

  // The system removes what they have begun to write.
  void end() override {
    for (const auto& [number, child] : children_) TerminateProcess(child.process, 1);
  }

  unsigned long processOf(int number) const override {
    const auto child = children_.find(number);
    return child == children_.end() ? 0 : child->second.number;
  }

  std::optional<ChildMessage> wait(std::optional<std::chrono::milliseconds> time) override {
    std::unique_lock lock(mutex_);
    const bool wasInterrupted = isInterrupted;
    const auto isThere = [&] { return !messages_.empty() || isInterrupted != wasInterrupted; };
    if (!time) {
      arrived_.wait(lock, isThere);
    } else {
      arrived_.wait_for(lock, *time, isThere);
    }
    if (messages_.empty()) return std::nullopt;
    ChildMessage message = std::move(messages_.front());
    messages_.pop_front();
    lock.unlock();
    if (message.end) {
      const auto child = children_.find(message.child);
      close(child->second);
      children_.erase(child);
    }
    return message;
  }

 private:
  static Failure lastFailure() { return {L"", systemFailure({}, GetLastError()).reason}; }

  // Only the pipes' other ends and standard error are inherited.
  Status launch(Child& child, HANDLE requests, HANDLE answers) {
    std::vector<HANDLE> inherited = {requests, answers};
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD flags = 0;
    if (errors != nullptr && GetHandleInformation(errors, &flags) != 0) inherited.push_back(errors);
    for (const HANDLE handle : inherited)
      SetHandleInformation(handle, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);

    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> storage(size);
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = requests;
    startup.StartupInfo.hStdOutput = answers;
    startup.StartupInfo.hStdError = errors;
    startup.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage.data());
    if (InitializeProcThreadAttributeList(startup.lpAttributeList, 1, 0, &size) == 0) return lastFailure();
    UpdateProcThreadAttribute(startup.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited.data(),
                              inherited.size() * sizeof(HANDLE), nullptr, nullptr);

    const std::wstring program = ownProgram();
    std::wstring line = quoted(program);
    for (const std::wstring& word : work_.words) line += L" " + quoted(word);
    PROCESS_INFORMATION process{};
    const BOOL created =
        CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                       EXTENDED_STARTUPINFO_PRESENT | CREATE_SUSPENDED | CREATE_NEW_PROCESS_GROUP, nullptr,
                       nullptr, &startup.StartupInfo, &process);
    const Failure failure = created != 0 ? Failure() : lastFailure();
    DeleteProcThreadAttributeList(startup.lpAttributeList);
    if (created == 0) return failure;
    AssignProcessToJobObject(job_, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    child.process = process.hProcess;
    child.number = process.dwProcessId;
    return {};
  }

  // In a thread of its own: a pipe cannot be waited for together with others.
  void read(int number, HANDLE answers, HANDLE process) {
    LineBuffer received;
    while (readSome(answers, received)) {
      while (auto line = received.take()) put({number, std::move(*line), {}});
    }
    CloseHandle(answers);
    WaitForSingleObject(process, INFINITE);
    ChildEnd end;
    DWORD status = 0;
    GetExitCodeProcess(process, &status);
    end.exitStatus = status;
    put({number, {}, end});
  }

  void put(ChildMessage message) {
    const std::lock_guard lock(mutex_);
    messages_.push_back(std::move(message));
    arrived_.notify_one();
  }

  static void close(Child& child) {
    child.reader.join();
    CloseHandle(child.requests);
    CloseHandle(child.process);
  }

  ChildWork work_;
  HANDLE job_;
  std::map<int, Child> children_;
  int started_ = 0;
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<ChildMessage> messages_;
};

}  // namespace

std::unique_ptr<ChildGroup> ChildGroup::create(ChildWork work) {
  return std::make_unique<StartedGroup>(std::move(work));
}

int interruption() { return isInterrupted ? SIGINT : 0; }

void endAsInterrupted() {}

std::unique_ptr<RequestChannel> standardRequestChannel() { return std::make_unique<StandardChannel>(); }

int usableProcessors() {
  DWORD_PTR own = 0, all = 0;
  if (GetProcessAffinityMask(GetCurrentProcess(), &own, &all) == 0 || own == 0) return 1;
  return std::popcount(own);
}

}  // namespace base
