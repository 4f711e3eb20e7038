// The entry of a sibling in a host whose framework would bring one along for libraries of another kind. There
// is nothing to do.

extern "C" int __stdcall DllMain(void*, unsigned long, void*) { return 1; }
