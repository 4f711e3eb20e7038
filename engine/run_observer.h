#pragma once
// Who looks on while a run works: a program that drives the host hands in functions, and is told of every
// setting and list entry what it tests, hits and writes. Nothing is done for it when nobody looks on, and
// nothing that the run does depends on it.
//
// Plain C, because it crosses the automation entry. Texts and arrays are the module's and stay valid during
// the call that hands them over. Functions must not throw, and must neither change the drawing nor run
// commands.

extern "C" {

// An entity or a layer.
struct KivObservedObject {
  long long id;  // the host's; tells objects of the drawing apart while it is open
};

// A setting, or an entry of a list, which has one result and no conditions.
struct KivObservedSetting {
  int section;          // 1 to 10
  int number;           // in its section, from 1
  const wchar_t* line;  // as the run's reader hands it over
  int conditionCount;
  const wchar_t* const* conditions;  // "key=value", "key<>value", in the file's order
  int resultCount;
  const wchar_t* const* results;  // those that act on the section's objects
};

enum KivObservedHit {
  kKivHit = 0,
  kKivHitLocked = 1,   // it is on a locked layer
  kKivHitRefused = 2,  // it could not be opened for another reason
};

struct KivRunObserver {
  void* context;  // the first argument of each function
  void (*settingBegins)(void* context, const KivObservedSetting* setting);
  // Once for each object that the section looks at, before the setting has written anything. `passes`: for
  // each condition whether the object meets it alone. `failed`: the first condition at which it drops out, -1
  // when it meets the setting. Several values of one kind that the selection does not test are held against
  // an object together, at the last of them. May be null: no object is tested for the observer then.
  void (*objectTested)(void* context, const KivObservedObject* object, const unsigned char* passes,
                       int failed);
  // The setting goes on to write to an object; `hit` is a KivObservedHit.
  void (*objectHit)(void* context, const KivObservedObject* object, int hit);
  // Around every result that is written to the object hit last; of an entry, around all that it does.
  void (*resultBegins)(void* context, int result);
  void (*resultEnds)(void* context, int result, int isRefused);
  void (*settingEnds)(void* context);
};

}  // extern "C"
