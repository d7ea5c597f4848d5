// A shared library that is no add-in.
extern "C" __attribute__((visibility("default"))) int somethingElse() {
    return 1;
}
