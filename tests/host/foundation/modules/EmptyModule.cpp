// A module that declares no class.

extern "C" int zorEmptyModule() { return 0; }
