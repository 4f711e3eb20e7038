#pragma once
// What the command line says, in the language of its user. Messages stand in the code in English; a catalogue
// has each with its translation, a file for each area of the program.

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace kivcli {

enum class Language { kEnglish, kJapanese };

// By LC_ALL, LC_MESSAGES and LANG of the environment, and LANGUAGE beside them; where none is set, by the
// system's own setting. Asked once. Nothing else, as numbers or files, follows the environment's language.
Language usersLanguage();
void setLanguage(Language language);  // from now on, whatever the environment says

// `english` in the user's language, with "%1" to "%9" replaced by the values; "%%" is "%". What the
// catalogue does not have comes out in English.
std::wstring tr(std::wstring_view english, std::initializer_list<std::wstring> values = {});

// A message that was made by the host, the module or the library, in English: as a whole, or by a row with
// "%1" to "%9" where the message has anything at all, or behind "NAME: ". Only the rows of the reasons count:
// what is a word in other areas may be a name here. One that no row fits comes out as it is.
std::wstring translated(std::wstring_view message);

struct Translation {
  const wchar_t* english;
  const wchar_t* japanese;
};

// One for each area.
std::span<const Translation> japaneseOfProgram();         // the program as a whole, sessions
std::span<const Translation> japaneseOfOptions();         // the calls and their options, help
std::span<const Translation> japaneseOfConvert();         // converting many drawings, reports
std::span<const Translation> japaneseOfInspect();         // info, explain, diff, picture
std::span<const Translation> japaneseOfSpecifications();  // check, fmt, learn
std::span<const Translation> japaneseOfReasons();         // what comes from below: files, drawings, CVT files

}  // namespace kivcli
