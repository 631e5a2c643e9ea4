// A library that loads and is no package.

extern "C" __attribute__((visibility("default"))) int somethingElse() { return 1; }
