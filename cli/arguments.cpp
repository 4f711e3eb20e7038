#include "cli/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "base/utf8.h"
#include "cli/joined.h"
#include "cli/language/language.h"
#include "cli/options/calls.h"

namespace kivcli {
namespace {

using base::Failure;
using base::Result;
using base::Status;

// The library takes bytes; whatever a word holds comes back as it was.
std::string bytesOf(std::wstring_view word) { return base::utf8::encodeName(word); }
std::wstring wordOf(const std::string& bytes) { return base::utf8::decodeName(bytes); }

// One call's options as the library has them. What it does not know it keeps, and what is wrong with a value
// is the row's to say: its own words are for programmers.
class CallParser {
 public:
  explicit CallParser(const CallRow& call) : call_(call) {
    app_.set_help_flag();
    app_.allow_extras();
    app_.allow_windows_style_options(false);  // on every system "/a" is a file
    help_ = app_.add_flag("--help,-h");
    help_->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    const CLI::callback_t keep = [](const CLI::results_t&) { return true; };
    for (const OptionRow& row : call.options) {
      CLI::Option* option = row.value[0] == L'\0' ? app_.add_flag(bytesOf(row.name))->disable_flag_override()
                                                  : app_.add_option(bytesOf(row.name), keep)->expected(1);
      option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
      rows_[option] = &row;
    }
    files_ = app_.add_option("files", keep);
    // A list without an end would take "[a,b]" for two.
    files_->expected(std::numeric_limits<int>::max())->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }

  Result<Arguments> parse(std::vector<std::wstring> words) {
    if (Status ready = refuseEmptyValues(words); !ready) return ready.failure();
    std::vector<std::string> reversed;
    std::transform(words.rbegin(), words.rend(), std::back_inserter(reversed), bytesOf);
    try {
      app_.parse(std::move(reversed));
    } catch (const CLI::ArgumentMismatch& mismatch) {
      return refusalOf(mismatch);
    } catch (const CLI::ParseError& error) {
      return Failure{L"", wordOf(error.what())};
    }
    return taken();
  }

 private:
  static Failure needsValue(const std::wstring& name) {
    return {name, tr(L"this option needs a value after it")};
  }

  // To the library "--spec=" is "--spec", whose value comes next.
  static Status refuseEmptyValues(const std::vector<std::wstring>& words) {
    for (const std::wstring& word : words) {
      if (word == L"--") break;
      if (word.starts_with(L"--") && word.find(L'=') == word.size() - 1) {
        return needsValue(word.substr(0, word.size() - 1));
      }
    }
    return {};
  }

  // The option that the library's message begins with, with its hyphens or without.
  Failure refusalOf(const CLI::ArgumentMismatch& mismatch) const {
    const std::string text = mismatch.what();
    const std::string name = text.substr(0, text.find_first_of(": "));
    for (const auto& [option, row] : rows_) {
      if (option->get_name() != name && !option->check_lname(name)) continue;
      if (row->value[0] == L'\0') return {row->name, tr(L"this option takes no value")};
      return needsValue(row->name);
    }
    return {L"", wordOf(text)};
  }

  Result<Arguments> taken() {
    Arguments arguments;
    arguments.call = &call_;
    if (help_->count() > 0) {
      arguments.call = findCall(L"help");
      arguments.files = {call_.name};
      return arguments;
    }
    for (const std::string& unknown : app_.remaining()) {
      if (unknown == "--") continue;  // the end of the options, which the library has among the rest
      const std::wstring word = wordOf(unknown);
      return Failure{word.substr(0, word.find(L'=')),
                     tr(L"there is no such option here; `kivcvt help %1` lists them", {call_.name})};
    }
    for (const std::string& file : files_->results()) arguments.files.push_back(wordOf(file));
    if (Status options = takeOptions(arguments); !options) return options.failure();
    if (std::ranges::find(arguments.files, L"") != arguments.files.end()) {
      return Failure{L"", tr(L"the name of a file is empty")};
    }
    if (Status complete = call_.check(arguments); !complete) return complete.failure();
    return arguments;
  }

  // In the order of the command line, which decides what is wrong first.
  Status takeOptions(Arguments& arguments) {
    std::map<const CLI::Option*, std::size_t> seen;
    for (const CLI::Option* option : app_.parse_order()) {
      const auto found = rows_.find(option);
      if (found == rows_.end()) continue;
      const OptionRow& row = *found->second;
      const std::size_t at = seen[option]++;
      if (at > 0 && !row.repeats) return Failure{row.name, tr(L"this option is given twice")};
      const std::wstring value = row.value[0] == L'\0' ? std::wstring() : wordOf(option->results()[at]);
      if (row.value[0] != L'\0' && value.empty()) return needsValue(row.name);
      if (Status status = row.take(arguments, value); !status) {
        Failure failure = status.failure();
        if (failure.place.empty()) failure.place = std::wstring(row.name) + L" " + value;
        return failure;
      }
    }
    return {};
  }

  const CallRow& call_;
  CLI::App app_;
  CLI::Option* help_ = nullptr;
  CLI::Option* files_ = nullptr;
  std::map<const CLI::Option*, const OptionRow*> rows_;
};

// "convert, check, info, ...".
std::wstring callNames() { return joined(calls(), L", ", &CallRow::name); }

}  // namespace

Result<Arguments> parseArguments(const std::vector<std::wstring>& words) {
  if (words.empty()) return Failure{L"", tr(L"please say what to do: %1", {callNames()})};
  if (words[0] == kWorkerWord) {
    Result<Arguments> ofWorker = parseArguments({words.begin() + 1, words.end()});
    if (ofWorker) ofWorker.value().isWorker = true;
    return ofWorker;
  }
  const CallRow* call = findCall(words[0]);
  if (call == nullptr)
    return Failure{words[0], tr(L"there is no such call; the calls are %1", {callNames()})};
  Result<Arguments> parsed = CallParser(*call).parse({words.begin() + 1, words.end()});
  if (parsed) parsed.value().words = words;
  return parsed;
}

}  // namespace kivcli
